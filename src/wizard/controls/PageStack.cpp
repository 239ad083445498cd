// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controls/PageStack.h"

#include <algorithm>

namespace velmora::wizard {

PageStack::PageStack(QWidget* parent)
    : QStackedWidget(parent)
    , blank_(new QWidget(this))
{
    addWidget(blank_);
}

void PageStack::Add(QWidget& page) { addWidget(&page); }

void PageStack::Place(QWidget& page, bool isOnScreen)
{
    if (isOnScreen != IsPlaced(page)) {
        if (isOnScreen) {
            placed_.push_back(&page);
        } else {
            std::erase(placed_, &page);
        }
    }
    setCurrentWidget(placed_.empty() ? blank_ : placed_.back());
}

bool PageStack::IsPlaced(const QWidget& page) const
{
    return std::find(placed_.begin(), placed_.end(), &page) != placed_.end();
}

} // namespace velmora::wizard
