// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/BandTabs.h"

#include "wizard/controls/Colours.h"

#include <QPainter>

namespace velmora::wizard {

namespace {

constexpr int kSidePadding = 24;
constexpr int kHeightPadding = 20;
constexpr int kUnderline = 3;

QFont Bold(QFont font)
{
    font.setBold(true);
    return font;
}

} // namespace

BandTabs::BandTabs(QWidget* parent)
    : QTabBar(parent)
{
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideNone);
}

QSize BandTabs::tabSizeHint(int index) const
{
    const QFontMetrics metrics(Bold(font()));
    const int width = metrics.size(Qt::TextShowMnemonic, tabText(index)).width();
    return {width + 2 * kSidePadding, metrics.lineSpacing() + kHeightPadding};
}

void BandTabs::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int index = 0; index < count(); ++index) {
        const QRect tab = tabRect(index);
        const bool isSelected = index == currentIndex();
        painter.setPen(colour::kBandText);
        painter.setFont(isSelected ? Bold(font()) : font());
        painter.drawText(tab, Qt::AlignCenter | Qt::TextShowMnemonic, tabText(index));
        if (!isSelected) {
            continue;
        }
        painter.fillRect(tab.adjusted(8, tab.height() - kUnderline, -8, 0), colour::kAccentOnBand);
        if (hasFocus()) {
            painter.setPen(colour::kAccentOnBand);
            painter.drawRoundedRect(tab.adjusted(8, 4, -9, -kUnderline - 4), 4, 4);
        }
    }
}

} // namespace velmora::wizard
