// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/FormatTile.h"

#include "wizard/rules/FormatScreen.h"

#include <QPainter>

#include <algorithm>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

constexpr qreal kMargin = 16;
constexpr qreal kRing = 4; // room for the ring of the focus
constexpr qreal kTileRadius = 8;
constexpr qreal kFaded = 0.45;
constexpr qreal kCaptionFactor = 1.3;

QColor FromBlueGreenRed(quint32 colour)
{
    return {static_cast<int>(colour & 0xFF),
        static_cast<int>(colour >> 8 & 0xFF),
        static_cast<int>(colour >> 16 & 0xFF)};
}

} // namespace

FormatTile::FormatTile(QWidget* parent)
    : QAbstractButton(parent)
    , backColor_(format_colour::kPossible)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void FormatTile::SetDrawing(const QString& name)
{
    drawing_.emplace(name);
    update();
}

void FormatTile::Paint(quint32 colour)
{
    backColor_ = colour;
    setAccessibleDescription(IsGrey() ? u"Non disponible avec ce graveur"_s : QString());
    setToolTip(accessibleDescription());
    setCursor(IsGrey() ? Qt::ArrowCursor : Qt::PointingHandCursor);
    update();
}

bool FormatTile::IsGrey() const { return backColor_ == format_colour::kImpossible; }

QSize FormatTile::sizeHint() const { return {360, 168}; }

QSize FormatTile::minimumSizeHint() const { return {240, 112}; }

void FormatTile::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF tile = QRectF(rect()).adjusted(kRing, kRing, -kRing, -kRing);
    const QColor colour = FromBlueGreenRed(backColor_);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() && !IsGrey() ? colour.darker(120) : colour);
    painter.drawRoundedRect(tile, kTileRadius, kTileRadius);
    painter.setOpacity(IsGrey() ? kFaded : 1);
    PaintContents(painter, tile.adjusted(kMargin, kMargin, -kMargin, -kMargin));
    painter.setOpacity(1);
    if (hasFocus()) {
        painter.setPen(QPen(palette().windowText(), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(
            QRectF(rect()).adjusted(1, 1, -1, -1), kTileRadius + 2, kTileRadius + 2);
    }
}

void FormatTile::PaintContents(QPainter& painter, const QRectF& place)
{
    const qreal side = std::min(place.height(), place.width() / 2);
    if (drawing_) {
        drawing_->Paint(painter, {place.left(), place.top(), side, place.height()});
    }
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * kCaptionFactor);
    large.setWeight(QFont::DemiBold);
    painter.setFont(large);
    painter.setPen(Qt::white);
    const QRectF caption = place.adjusted(side + kMargin, 0, 0, 0);
    painter.drawText(caption, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, text());
}

} // namespace velmora::wizard
