// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/CapacityBar.h"

#include "wizard/controls/Colours.h"

#include <QPainter>
#include <QPainterPath>

namespace velmora::wizard {

namespace {

constexpr int kHeight = 24;
constexpr qreal kBarRadius = 4;
constexpr qreal kMarkOverhang = 4; // the mark stands out above and below

} // namespace

CapacityBar::CapacityBar(QWidget* parent)
    : QProgressBar(parent)
{
    setRange(0, 100);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void CapacityBar::Setlimit(int limit)
{
    limit_ = limit;
    update();
}

int CapacityBar::MarkPosition() const
{
    return width() * (limit_ - minimum()) / (maximum() - minimum());
}

QSize CapacityBar::sizeHint() const { return {240, kHeight}; }

QSize CapacityBar::minimumSizeHint() const { return {80, kHeight}; }

void CapacityBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track = QRectF(rect()).adjusted(0.5, kMarkOverhang, -0.5, -kMarkOverhang);
    const auto atValue = [&](int value) {
        return track.left() + track.width() * (value - minimum()) / (maximum() - minimum());
    };

    QPainterPath shape;
    shape.addRoundedRect(track, kBarRadius, kBarRadius);
    painter.fillPath(shape, palette().base());
    painter.save();
    painter.setClipPath(shape);
    QRectF filled = track;
    filled.setRight(atValue(value()));
    painter.fillRect(filled, value() >= limit_ ? colour::kWarning : colour::kAccent);
    painter.restore();
    painter.setPen(QPen(palette().mid(), 1));
    painter.drawPath(shape);

    const qreal mark = atValue(limit_);
    painter.setPen(QPen(palette().windowText(), 2));
    painter.drawLine(QPointF(mark, 1), QPointF(mark, height() - 1));
}

} // namespace velmora::wizard
