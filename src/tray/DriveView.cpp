// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/DriveView.h"

#include <QConicalGradient>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>

namespace velmora::tray {

namespace {

// The picture is drawn in these units and scaled to the widget.
constexpr QSizeF kPicture {304, 312};
constexpr QRectF kBody {48, 8, 208, 144};
constexpr QRectF kBezel {40, 152, 224, 20};
constexpr double kTrayWidth = 152;
constexpr double kTrayHeight = 140;
constexpr double kOpenBy = 160;
constexpr double kDiscRadius = 64;
constexpr double kDataRadius = 62;  // where the recording area ends
constexpr double kInnerRadius = 24; // where it begins
constexpr double kHubRadius = 18;
constexpr double kHoleRadius = 8;
constexpr QColor kAccent {0x40, 0x60, 0xC0};

QPainterPath Ring(QPointF centre, double outer, double inner)
{
    QPainterPath ring;
    ring.addEllipse(centre, outer, outer);
    ring.addEllipse(centre, inner, inner);
    return ring;
}

/// The recording begins inside; equal shares of the disc take equal areas.
double RadiusOf(double share)
{
    const double inner = kInnerRadius * kInnerRadius;
    return std::sqrt(inner + std::clamp(share, 0.0, 1.0) * (kDataRadius * kDataRadius - inner));
}

} // namespace

DriveView::DriveView(QWidget* parent)
    : QWidget(parent)
{
    setMinimumSize(240, 216);
}

void DriveView::Show(const State& state)
{
    state_ = state;
    update();
}

QSize DriveView::sizeHint() const { return kPicture.toSize(); }

/// A grey that contrasts with the window's, on a dark desktop too.
QColor DriveView::Tone(int lightness) const
{
    const bool isDark = palette().color(QPalette::Window).lightness() < 128;
    const int shown = isDark ? 40 + lightness / 3 : lightness;
    return {shown, shown, std::min(255, shown + 4)};
}

void DriveView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = std::min(width() / kPicture.width(), height() / kPicture.height());
    painter.translate(
        (width() - kPicture.width() * scale) / 2, (height() - kPicture.height() * scale) / 2);
    painter.scale(scale, scale);
    if (!state_.hasDrive) {
        painter.setOpacity(0.4);
    }
    // The open tray comes out below the front; the closed one shows as if through a window.
    if (state_.isOpen) {
        PaintTray(painter);
        PaintBody(painter);
    } else {
        PaintBody(painter);
        PaintTray(painter);
    }
}

void DriveView::PaintBody(QPainter& painter) const
{
    QLinearGradient metal(kBody.topLeft(), kBody.bottomLeft());
    metal.setColorAt(0, Tone(0xE4));
    metal.setColorAt(1, Tone(0xC8));
    painter.setPen(QPen(Tone(0x98), 1));
    painter.setBrush(metal);
    painter.drawRoundedRect(kBody, 8, 8);
    QLinearGradient front(kBezel.topLeft(), kBezel.bottomLeft());
    front.setColorAt(0, QColor(0x50, 0x50, 0x54));
    front.setColorAt(1, QColor(0x38, 0x38, 0x3C));
    painter.setPen(QPen(QColor(0x28, 0x28, 0x2C), 1));
    painter.setBrush(front);
    painter.drawRoundedRect(kBezel, 4, 4);
    painter.setPen(Qt::NoPen);
    painter.setBrush(
        state_.hasDisc && !state_.isOpen ? QColor(0x60, 0xD0, 0x80) : QColor(0x78, 0x78, 0x7C));
    painter.drawEllipse(QPointF(kBezel.right() - 16, kBezel.center().y()), 3, 3);
}

void DriveView::PaintTray(QPainter& painter) const
{
    const double shift = state_.isOpen ? kOpenBy : 0;
    const QRectF tray(
        kBody.center().x() - kTrayWidth / 2, kBody.top() + shift, kTrayWidth, kTrayHeight);
    const QPointF centre(tray.center().x(), tray.top() + kTrayHeight / 2);
    painter.save();
    if (state_.isOpen) {
        QPainterPath shadow;
        shadow.addRoundedRect(tray.adjusted(-2, 0, 2, 4), 12, 12);
        painter.fillPath(shadow, QColor(0, 0, 0, 40));
        painter.setPen(QPen(Tone(0x80), 1));
        painter.setBrush(Tone(0xB4));
        painter.drawRoundedRect(tray, 12, 12);
    }
    painter.setPen(QPen(Tone(0x90), 1));
    painter.setBrush(Tone(0xA4));
    painter.drawEllipse(centre, kDiscRadius + 4, kDiscRadius + 4);
    painter.setBrush(Tone(0x80));
    painter.drawEllipse(centre, kHubRadius - 8, kHubRadius - 8);
    if (state_.hasDisc) {
        PaintDisc(painter, centre);
    }
    painter.restore();
}

void DriveView::PaintDisc(QPainter& painter, QPointF centre) const
{
    QConicalGradient sheen(centre, 30);
    for (const auto& [place, colour] : {std::pair {0.0, 0xF4F6FA},
             std::pair {0.12, 0xC8D4E8},
             std::pair {0.25, 0xE8E0F0},
             std::pair {0.5, 0xD4DCE4},
             std::pair {0.62, 0xF4F4F8},
             std::pair {0.75, 0xD0E4E0},
             std::pair {1.0, 0xF4F6FA}}) {
        sheen.setColorAt(place, QColor(static_cast<QRgb>(colour)));
    }
    painter.setPen(QPen(QColor(0x90, 0x98, 0xA4), 1));
    painter.setBrush(sheen);
    painter.drawPath(Ring(centre, kDiscRadius, kHoleRadius));
    painter.setPen(Qt::NoPen);
    if (state_.usedShare > 0) {
        QColor recorded = kAccent;
        recorded.setAlpha(176);
        painter.setBrush(recorded);
        painter.drawPath(Ring(centre, RadiusOf(state_.usedShare), kInnerRadius));
    }
    painter.setBrush(QColor(255, 255, 255, 150));
    painter.drawPath(Ring(centre, kHubRadius, kHoleRadius));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0x80, 0x88, 0x94, 160), 1));
    painter.drawEllipse(centre, kInnerRadius, kInnerRadius);
    painter.drawEllipse(centre, kHubRadius, kHubRadius);
}

} // namespace velmora::tray
