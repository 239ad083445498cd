// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProgressBar>

namespace velmora::wizard {

/// How full the disc is, in percent of a scale that goes beyond the disc. The mark is where the
/// disc ends; past it the bar takes a warning colour.
class CapacityBar final : public QProgressBar {
public:
    explicit CapacityBar(QWidget* parent);

    /// The value of the mark.
    int limit() const { return limit_; }
    void Setlimit(int limit);

    /// The position of the mark, in pixels from the left.
    int MarkPosition() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int limit_ = 100;
};

} // namespace velmora::wizard
