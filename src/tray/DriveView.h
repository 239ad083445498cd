// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace velmora::tray {

/// A picture of a drive from above, its tray in or out, and the disc in it with the recorded ring.
class DriveView final : public QWidget {
public:
    explicit DriveView(QWidget* parent = nullptr);

    struct State {
        bool hasDrive = false;
        bool isOpen = false;
        bool hasDisc = false;
        double usedShare = 0; ///< 0 to 1
    };
    void Show(const State& state);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintTray(QPainter& painter) const;
    void PaintDisc(QPainter& painter, QPointF centre) const;
    void PaintBody(QPainter& painter) const;
    QColor Tone(int lightness) const;

    State state_;
};

} // namespace velmora::tray
