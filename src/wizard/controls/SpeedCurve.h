// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/SpeedProfile.h"

#include <QWidget>

namespace velmora::wizard {

/// A small curve of the speed of a recording: from its start on the left to its end on the right,
/// under its highest speed. The speed in words is its accessible name.
class SpeedCurve final : public QWidget {
public:
    explicit SpeedCurve(QWidget* parent);

    void Show(const SpeedProfile& profile);
    const SpeedProfile& Profile() const { return profile_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPolygonF CurveIn(const QRectF& place) const;

    SpeedProfile profile_;
};

} // namespace velmora::wizard
