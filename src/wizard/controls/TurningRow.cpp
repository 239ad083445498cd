// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/TurningRow.h"

#include <QBoxLayout>

#include <algorithm>

namespace velmora::wizard {

TurningRow::TurningRow(QWidget* parent)
    : QWidget(parent)
{
}

QBoxLayout& TurningRow::Row() const { return *static_cast<QBoxLayout*>(layout()); }

QSize TurningRow::minimumSizeHint() const
{
    int widest = 0;
    for (int i = 0; i < Row().count(); ++i) {
        widest = std::max(widest, Row().itemAt(i)->minimumSize().width());
    }
    return {widest, Row().minimumSize().height()};
}

void TurningRow::resizeEvent(QResizeEvent* event)
{
    int needed = Row().spacing() * (Row().count() - 1);
    for (int i = 0; i < Row().count(); ++i) {
        needed += Row().itemAt(i)->minimumSize().width();
    }
    Row().setDirection(width() < needed ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    QWidget::resizeEvent(event);
}

} // namespace velmora::wizard
