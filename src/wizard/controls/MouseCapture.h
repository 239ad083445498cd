// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace velmora::wizard {

/// Keeps the mouse for one widget: while it is held, no other widget of the program gets mouse
/// input. The keyboard stays free, and a box that asks something can always be reached.
///
/// Hiding the holder frees the mouse, and so does another capture.
class MouseCapture final : public QObject {
public:
    MouseCapture() = default;
    ~MouseCapture() override;
    MouseCapture(const MouseCapture&) = delete;
    MouseCapture& operator=(const MouseCapture&) = delete;
    MouseCapture(MouseCapture&&) = delete;
    MouseCapture& operator=(MouseCapture&&) = delete;

    void SetCapture(QWidget& holder);
    void ReleaseCapture();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> holder_;
};

} // namespace velmora::wizard
