// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/SpeedCurve.h"

#include "wizard/controls/Colours.h"
#include "writing/ProgressWords.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

QString WordsOf(const SpeedProfile& written, const SpeedProfile& read)
{
    const bool isRead = !read.Points().empty();
    const SpeedProfile& last = isRead ? read : written;
    if (last.Points().empty()) {
        return u"Vitesse : pas encore mesurée"_s;
    }
    const QString words
        = isRead ? u"Vitesse de lecture : %1, au plus %2"_s : u"Vitesse : %1, au plus %2"_s;
    return words.arg(writing::SpeedWords(last.Points().back().sectorsPerSecond),
        writing::SpeedWords(last.Highest()));
}

} // namespace

SpeedCurve::SpeedCurve(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    Show({}, {});
}

void SpeedCurve::Show(const SpeedProfile& written, const SpeedProfile& read)
{
    written_ = written;
    read_ = read;
    const QString words = WordsOf(written_, read_);
    if (words != accessibleName()) {
        setAccessibleName(words);
        setToolTip(words);
    }
    update();
}

QSize SpeedCurve::sizeHint() const { return {240, 72}; }

QSize SpeedCurve::minimumSizeHint() const { return {120, 40}; }

void SpeedCurve::paintEvent(QPaintEvent*)
{
    if (written_.Points().empty() && read_.Points().empty()) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int caption = fontMetrics().height();
    painter.setPen(palette().windowText().color());
    painter.drawText(rect(), Qt::AlignTop | Qt::AlignLeft, accessibleName());
    const QRectF place = QRectF(rect()).adjusted(0.5, caption + 2, -0.5, -1);
    painter.setPen(QPen(palette().mid(), 1));
    painter.drawLine(place.bottomLeft(), place.bottomRight());
    PaintCurve(painter, place, written_, colour::kWritten);
    PaintCurve(painter, place, read_, colour::kCompared);
}

void SpeedCurve::PaintCurve(
    QPainter& painter, const QRectF& place, const SpeedProfile& profile, QColor colour) const
{
    if (profile.Points().empty()) {
        return;
    }
    const QPolygonF curve = CurveIn(place, profile);
    QPainterPath area;
    area.addPolygon(curve);
    painter.setPen(QPen(colour, 2));
    colour.setAlphaF(0.25F);
    painter.fillPath(area, colour);
    painter.drawPolyline(curve.mid(1, curve.size() - 2)); // without the lower corners
}

QPolygonF SpeedCurve::CurveIn(const QRectF& place, const SpeedProfile& profile) const
{
    const auto& points = profile.Points();
    const auto heightOf = [&](const SpeedProfile::Point& point) {
        return place.bottom() - place.height() * point.sectorsPerSecond / Highest();
    };
    QPolygonF curve {place.bottomLeft(), {place.left(), heightOf(points.front())}};
    for (const SpeedProfile::Point& point : points) {
        curve << QPointF(place.left() + place.width() * point.share, heightOf(point));
    }
    curve << QPointF(curve.back().x(), place.bottom());
    return curve;
}

double SpeedCurve::Highest() const { return std::max(written_.Highest(), read_.Highest()); }

} // namespace velmora::wizard
