// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/ScrollStrip.h"

#include <QEvent>
#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>

namespace velmora::wizard {

ScrollStrip::ScrollStrip(QWidget* parent)
    : QScrollArea(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setFrameStyle(QFrame::Box | QFrame::Plain); // seen while the keys scroll
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QSize ScrollStrip::sizeHint() const
{
    const int width = widget() != nullptr ? widget()->sizeHint().width() : 0;
    return {width + Frame(), NeededHeight()};
}

QSize ScrollStrip::minimumSizeHint() const
{
    constexpr int kLeastLines = 2;
    const int width = widget() != nullptr ? widget()->minimumSizeHint().width() : 0;
    return {width + Frame(), std::min(NeededHeight(), kLeastLines * fontMetrics().lineSpacing())};
}

void ScrollStrip::ShowTop() { verticalScrollBar()->setValue(0); }

bool ScrollStrip::event(QEvent* event)
{
    const bool isFrame = event->type() == QEvent::Paint;
    return (isFrame && !hasFocus()) || QScrollArea::event(event);
}

bool ScrollStrip::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        ScrollOnlyForWords();
    }
    return QScrollArea::eventFilter(watched, event);
}

void ScrollStrip::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        updateGeometry(); // the text wraps differently
    }
    ScrollOnlyForWords();
}

/// The bar takes width from the words, so it is there only where they don't fit without it.
void ScrollStrip::ScrollOnlyForWords()
{
    const bool isTooLow = height() < NeededHeight();
    setVerticalScrollBarPolicy(isTooLow ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    setFocusPolicy(isTooLow ? Qt::TabFocus : Qt::NoFocus);
}

int ScrollStrip::Frame() const { return 2 * frameWidth(); }

int ScrollStrip::NeededHeight() const
{
    if (widget() == nullptr) {
        return 0;
    }
    const QSize usual = widget()->sizeHint();
    const bool hasPlace = testAttribute(Qt::WA_Resized);
    const int height = widget()->hasHeightForWidth()
        ? widget()->heightForWidth(hasPlace ? width() - Frame() : usual.width())
        : usual.height();
    return height + Frame();
}

} // namespace velmora::wizard
