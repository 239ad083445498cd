// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/SpeedProfile.h"

#include <QWidget>

namespace velmora::wizard {

/// Small curves of how fast a recording is written and then, for the comparison, read: from its
/// start on the left to its end on the right, scaled to the highest speed of both. The latest
/// speed, in words, is its accessible name.
class SpeedCurve final : public QWidget {
public:
    explicit SpeedCurve(QWidget* parent);

    void Show(const SpeedProfile& written, const SpeedProfile& read);
    const SpeedProfile& Written() const { return written_; }
    const SpeedProfile& Read() const { return read_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintCurve(
        QPainter& painter, const QRectF& place, const SpeedProfile& profile, QColor colour) const;
    QPolygonF CurveIn(const QRectF& place, const SpeedProfile& profile) const;
    double Highest() const;

    SpeedProfile written_;
    SpeedProfile read_;
};

} // namespace velmora::wizard
