// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/ScrollStrip.h"

#include <QEvent>
#include <QResizeEvent>

#include <algorithm>

namespace velmora::wizard {

ScrollStrip::ScrollStrip(QWidget* parent)
    : QScrollArea(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QSize ScrollStrip::sizeHint() const
{
    return {widget() != nullptr ? widget()->sizeHint().width() : 0, NeededHeight()};
}

QSize ScrollStrip::minimumSizeHint() const
{
    constexpr int kLeastLines = 2;
    return {widget() != nullptr ? widget()->minimumSizeHint().width() : 0,
        std::min(NeededHeight(), kLeastLines * fontMetrics().lineSpacing())};
}

bool ScrollStrip::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        ShowBarOnlyForWords();
    }
    return QScrollArea::eventFilter(watched, event);
}

void ScrollStrip::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        updateGeometry(); // the words break otherwise
    }
    ShowBarOnlyForWords();
}

/// The contents never get lower than their least height, which may be more than the words need.
void ScrollStrip::ShowBarOnlyForWords()
{
    setVerticalScrollBarPolicy(
        height() < NeededHeight() ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

int ScrollStrip::NeededHeight() const
{
    if (widget() == nullptr) {
        return 0;
    }
    const QSize usual = widget()->sizeHint();
    const bool hasPlace = testAttribute(Qt::WA_Resized);
    return widget()->hasHeightForWidth()
        ? widget()->heightForWidth(hasPlace ? width() : usual.width())
        : usual.height();
}

} // namespace velmora::wizard
