// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/AttentiveClock.h"

#include <algorithm>

namespace velmora::terminal {

void AttentiveClock::Pause(double seconds)
{
    constexpr double kStep = 0.1;
    const double end = Timer() + seconds;
    double left = seconds;
    while (left > 0) {
        clock_.Pause(std::min(left, kStep));
        screen_.Pump();
        left = end - Timer();
    }
}

} // namespace velmora::terminal
