// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/DiscView.h"

#include "wizard/controls/Colours.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

// The drawings of discs: their side, and the radii between which a disc is recorded.
constexpr qreal kSide = 128;
constexpr qreal kInner = 24.5;
constexpr qreal kOuter = 56;
// Damage is visible, however small, and on any colour.
constexpr qreal kThinnest = 2;
constexpr qreal kHalo = 1;

QString DrawingOf(DiscLook look)
{
    switch (look) {
    case DiscLook::Cd:
        return u"disc-cd"_s;
    case DiscLook::Dvd:
        return u"disc-dvd"_s;
    case DiscLook::BluRay:
        return u"disc-bd"_s;
    }
    return {};
}

QColor ColourOf(StretchKind kind)
{
    switch (kind) {
    case StretchKind::Planned:
        return colour::kPlanned;
    case StretchKind::TooMuch:
        return colour::kWarning;
    case StretchKind::Earlier:
        return colour::kEarlier;
    case StretchKind::Written:
        return colour::kWritten;
    case StretchKind::Compared:
        return colour::kCompared;
    case StretchKind::Hurt:
        return colour::kFailure;
    }
    return {};
}

QPainterPath Ring(qreal inner, qreal outer)
{
    QPainterPath ring;
    ring.addEllipse(QPointF(), outer, outer);
    ring.addEllipse(QPointF(), inner, inner); // the even-odd rule leaves it out
    return ring;
}

} // namespace

DiscView::DiscView(QWidget* parent)
    : QWidget(parent)
{
    Show({});
}

void DiscView::Show(const DiscContents& contents)
{
    if (!drawing_ || contents.look != contents_.look) {
        drawing_ = std::make_unique<Drawing>(DrawingOf(contents.look));
    }
    contents_ = contents;
    const QString words = WordsOf(contents);
    if (words != accessibleName()) {
        setAccessibleName(words);
        setToolTip(words);
    }
    update();
}

QSize DiscView::sizeHint() const { return {144, 144}; }

QSize DiscView::minimumSizeHint() const { return {96, 96}; }

void DiscView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing_->Paint(painter, rect());
    const qreal scale = std::min(width(), height()) / kSide;
    painter.translate(QRectF(rect()).center());
    painter.scale(scale, scale);
    for (const DiscStretch& stretch : StretchesOf(contents_)) {
        PaintStretch(painter, stretch);
    }
}

void DiscView::PaintStretch(QPainter& painter, const DiscStretch& stretch) const
{
    const qreal inner = RadiusAt(stretch.from, kInner, kOuter);
    qreal outer = RadiusAt(stretch.to, kInner, kOuter);
    if (stretch.kind == StretchKind::Hurt) {
        outer = std::max(outer, inner + kThinnest);
        painter.fillPath(Ring(inner - kHalo, outer + kHalo), Qt::white);
    }
    painter.fillPath(Ring(inner, outer), ColourOf(stretch.kind));
}

} // namespace velmora::wizard
