// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/SpeedCurve.h"

#include "drive/SectorSize.h"
#include "wizard/controls/Colours.h"

#include <QLocale>
#include <QPainter>
#include <QPainterPath>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

QString SpeedText(double sectorsPerSecond)
{
    constexpr double kMillion = 1e6;
    const double speed = sectorsPerSecond * static_cast<double>(drive::kSectorBytes) / kMillion;
    return QLocale::system().toString(speed, 'f', 1) + u"\u00A0Mo/s"_s;
}

QString WordsOf(const SpeedProfile& profile)
{
    if (profile.Points().empty()) {
        return u"Vitesse : pas encore mesurée"_s;
    }
    return u"Vitesse : %1, au plus %2"_s.arg(
        SpeedText(profile.Points().back().sectorsPerSecond), SpeedText(profile.Highest()));
}

} // namespace

SpeedCurve::SpeedCurve(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    Show({});
}

void SpeedCurve::Show(const SpeedProfile& profile)
{
    profile_ = profile;
    const QString words = WordsOf(profile_);
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
    if (profile_.Points().empty()) {
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
    QPainterPath area;
    area.addPolygon(CurveIn(place));
    QColor below = colour::kWritten;
    below.setAlphaF(0.25F);
    painter.fillPath(area, below);
    painter.setPen(QPen(colour::kWritten, 2));
    const QPolygonF curve = CurveIn(place);
    painter.drawPolyline(curve.mid(1, curve.size() - 2)); // without the corners below
}

QPolygonF SpeedCurve::CurveIn(const QRectF& place) const
{
    const auto& points = profile_.Points();
    const auto heightOf = [&](const SpeedProfile::Point& point) {
        return place.bottom() - place.height() * point.sectorsPerSecond / profile_.Highest();
    };
    QPolygonF curve {place.bottomLeft(), {place.left(), heightOf(points.front())}};
    for (const SpeedProfile::Point& point : points) {
        curve << QPointF(place.left() + place.width() * point.share, heightOf(point));
    }
    curve << QPointF(curve.back().x(), place.bottom());
    return curve;
}

} // namespace velmora::wizard
