// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "AttentiveClock.h"

#include <algorithm>

namespace velmora::terminal {

void AttentiveClock::Pause(double seconds)
{
    constexpr double kStep = 0.1;
    const double end = Timer() + seconds;
    for (double left = seconds; left > 0; left = end - Timer()) {
        clock_.Pause(std::min(left, kStep));
        screen_.Pump();
    }
}

} // namespace velmora::terminal
