// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSizeF>
#include <QString>
#include <QSvgRenderer>

class QPainter;
class QRectF;

namespace velmora::wizard {

/// One of the window's own drawings, sharp at every size.
class Drawing {
public:
    /// @param name  file name without its extension, as "disc-cd"
    explicit Drawing(const QString& name);

    /// Paints the drawing into the middle of a place, as large as it fits.
    void Paint(QPainter& painter, const QRectF& place);

private:
    QSvgRenderer renderer_;
};

} // namespace velmora::wizard
