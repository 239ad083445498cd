// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/FormatTile.h"

#include "wizard/controls/Colours.h"

#include <QPainter>

#include <algorithm>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

constexpr qreal kMargin = 16;
constexpr qreal kMarginShare = 16; // of the tile's height, for a low tile
constexpr qreal kRing = 4;         // from the edge to the ring of the focus
constexpr qreal kTileRadius = 8;
constexpr qreal kFaded = 0.45;
constexpr qreal kCaptionFactor = 1.3;

} // namespace

FormatTile::FormatTile(QWidget* parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void FormatTile::SetDrawing(const QString& name)
{
    drawing_.emplace(name);
    update();
}

void FormatTile::SetPossible(bool isPossible)
{
    isPossible_ = isPossible;
    Describe();
    setCursor(isPossible_ ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void FormatTile::SetDetail(const QString& detail)
{
    detail_ = detail;
    Describe();
    update();
}

void FormatTile::Describe()
{
    QStringList lines {isPossible_ ? QString() : u"Non disponible avec ce graveur"_s, detail_};
    lines.removeAll(QString());
    setAccessibleDescription(lines.join(u'\n'));
    setToolTip(accessibleDescription());
}

// A page gives its tiles all the remaining space.
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
    const QRectF tile = rect();
    const QColor ground = isPossible_ ? colour::kAccent : colour::kImpossible;
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() && isPossible_ ? ground.darker(120) : ground);
    painter.drawRoundedRect(tile, kTileRadius, kTileRadius);
    painter.setOpacity(isPossible_ ? 1 : kFaded);
    const qreal margin = std::min(kMargin, tile.height() / kMarginShare);
    PaintContents(painter, tile.adjusted(kMargin, margin, -kMargin, -margin));
    painter.setOpacity(1);
    if (hasFocus()) {
        painter.setPen(QPen(Qt::white, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(
            tile.adjusted(kRing, kRing, -kRing, -kRing), kTileRadius - 2, kTileRadius - 2);
    }
}

void FormatTile::PaintContents(QPainter& painter, const QRectF& place)
{
    const qreal side = std::min(place.height(), place.width() / 2);
    if (drawing_) {
        drawing_->Paint(painter, {place.left(), place.top(), side, place.height()});
    }
    PaintWords(painter, place.adjusted(side + kMargin, 0, 0, 0));
}

void FormatTile::PaintWords(QPainter& painter, const QRectF& place)
{
    constexpr int kFlags = Qt::AlignLeft | Qt::TextWordWrap | Qt::TextShowMnemonic;
    constexpr qreal kGap = 4;
    constexpr QChar kUnbrokenHyphen(0x2011); // "DVD-RW" stays on one line
    const QString shown = QString(detail_).replace(u'-', kUnbrokenHyphen);
    const QFontMetricsF large(CaptionFont());
    const QRectF caption = large.boundingRect(place, kFlags, text());
    const QRectF detail = QFontMetricsF(font()).boundingRect(place, kFlags, shown);
    const qreal both = caption.height() + kGap + detail.height();
    const bool hasRoom = !shown.isEmpty() && both <= place.height();
    const qreal top = (place.height() - (hasRoom ? both : caption.height())) / 2;
    painter.setPen(Qt::white);
    painter.setFont(CaptionFont());
    painter.drawText(place.translated(0, top), kFlags, text());
    if (hasRoom) {
        painter.setFont(font());
        painter.drawText(place.translated(0, top + caption.height() + kGap), kFlags, shown);
    }
}

} // namespace velmora::wizard
