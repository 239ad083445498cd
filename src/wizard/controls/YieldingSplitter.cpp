// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/YieldingSplitter.h"

namespace velmora::wizard {

namespace {

// Of the lower one: two lines alone, a few below the upper one.
constexpr int kLeastAlone = 48;
constexpr int kLeastBelow = 64;

} // namespace

YieldingSplitter::YieldingSplitter(QWidget* parent)
    : QSplitter(Qt::Vertical, parent)
{
}

QSize YieldingSplitter::minimumSizeHint() const { return {0, kLeastAlone}; }

void YieldingSplitter::resizeEvent(QResizeEvent* event)
{
    QWidget& upper = *widget(0);
    upper.setVisible(height() >= upper.minimumSizeHint().height() + handleWidth() + kLeastBelow);
    QSplitter::resizeEvent(event);
}

} // namespace velmora::wizard
