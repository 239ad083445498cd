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
constexpr qreal kMarginShare = 16; // of the tile's height, where the tile is low
constexpr qreal kRing = 4;         // room for the ring of the focus
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

// A page gives its tiles all the room that is left.
QSize FormatTile::sizeHint() const { return minimumSizeHint(); }

QSize FormatTile::minimumSizeHint() const
{
    constexpr int kCaptionLines = 2;
    const QFontMetrics metrics(CaptionFont());
    return {metrics.averageCharWidth() * 20, metrics.lineSpacing() * kCaptionLines + 16};
}

QFont FormatTile::CaptionFont() const
{
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * kCaptionFactor);
    large.setWeight(QFont::DemiBold);
    return large;
}

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
    const qreal margin = std::min(kMargin, tile.height() / kMarginShare);
    PaintContents(painter, tile.adjusted(kMargin, margin, -kMargin, -margin));
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
    painter.setFont(CaptionFont());
    painter.setPen(Qt::white);
    const QRectF caption = place.adjusted(side + kMargin, 0, 0, 0);
    painter.drawText(caption, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, text());
}

} // namespace velmora::wizard
