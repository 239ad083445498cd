// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/Drawing.h"

#include <QPainter>
#include <QRectF>

// A Qt macro that has to be outside every namespace.
static void InitResources() { Q_INIT_RESOURCE(wizard); }

namespace velmora::wizard {

using namespace Qt::StringLiterals;

Drawing::Drawing(const QString& name)
{
    InitResources();
    renderer_.load(u":/wizard/"_s + name + u".svg"_s);
}

void Drawing::Paint(QPainter& painter, const QRectF& place)
{
    const QSizeF size = QSizeF(renderer_.defaultSize()).scaled(place.size(), Qt::KeepAspectRatio);
    QRectF middle({}, size);
    middle.moveCenter(place.center());
    renderer_.render(&painter, middle);
}

} // namespace velmora::wizard
