// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/WayOut.h"

#include "wizard/rules/Navigation.h"

#include <utility>

namespace velmora::wizard {

WayOut::WayOut(Navigation& navigation, const runtime::Clock& clock, double seconds)
    : navigation_(navigation)
    , secondClick_(clock, seconds)
{
}

bool WayOut::Look()
{
    const bool leadsOut = navigation_.IsAtWayOut();
    if (std::exchange(leadsOut_, leadsOut) != leadsOut) {
        secondClick_.OnPageChange();
    }
    return leadsOut;
}

void WayOut::CorvaneButton1()
{
    if (!secondClick_.IsPossible()) {
        navigation_.CorvaneButton1();
    }
}

} // namespace velmora::wizard
