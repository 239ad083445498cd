// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/ScrollColumn.h"

#include <QEvent>
#include <QScrollBar>

namespace velmora::wizard {

ScrollColumn::ScrollColumn(QWidget* parent)
    : QScrollArea(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
}

QSize ScrollColumn::sizeHint() const
{
    return {NeededWidth(), widget() != nullptr ? widget()->sizeHint().height() : 0};
}

QSize ScrollColumn::minimumSizeHint() const
{
    return {NeededWidth(), QScrollArea::minimumSizeHint().height()};
}

bool ScrollColumn::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

int ScrollColumn::NeededWidth() const
{
    const int bar = verticalScrollBar()->sizeHint().width();
    return widget() != nullptr ? widget()->minimumSizeHint().width() + bar : 0;
}

} // namespace velmora::wizard
