// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/PictureButton.h"

#include "wizard/controls/Colours.h"

#include <QPainter>

namespace velmora::wizard {

namespace {

constexpr int kSide = 40;

} // namespace

PictureButton::PictureButton(QWidget* parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PictureButton::SetDrawing(const QString& name)
{
    drawing_.emplace(name);
    update();
}

QSize PictureButton::sizeHint() const { return {kSide, kSide}; }

void PictureButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF circle = QRectF(rect()).adjusted(2, 2, -2, -2);
    const bool isHot = isDown() || underMouse();
    painter.setPen(hasFocus() ? QPen(colour::kAccentOnBand, 2) : QPen(Qt::NoPen));
    painter.setBrush(isDown() ? colour::kAccent : QColor(255, 255, 255, isHot ? 60 : 26));
    painter.drawEllipse(circle);
    if (drawing_) {
        drawing_->Paint(painter, circle.adjusted(4, 4, -4, -4));
    }
}

void PictureButton::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void PictureButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

} // namespace velmora::wizard
