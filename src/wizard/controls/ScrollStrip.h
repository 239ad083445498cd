// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QScrollArea>

namespace velmora::wizard {

/// Takes the height that its text needs at its width; in a window that is too low, the text scrolls
/// instead of overlapping: by the wheel, and by the arrow keys when it has the focus. It is in the
/// tab order only then.
class ScrollStrip final : public QScrollArea {
public:
    explicit ScrollStrip(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    /// A line or two.
    QSize minimumSizeHint() const override;

    /// Scrolls back to the start.
    void ShowTop();

protected:
    bool event(QEvent* event) override;
    /// The contents may need a different height now.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int Frame() const;
    int NeededHeight() const;
    void ScrollOnlyForWords();
};

} // namespace velmora::wizard
