// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/Clock.h"
#include "runtime/EventPump.h"

namespace velmora::terminal {

/// A clock whose pauses keep polling a screen, so that a stop also works in long waits.
class AttentiveClock final : public runtime::Clock {
public:
    AttentiveClock(runtime::Clock& clock, runtime::EventPump& screen)
        : clock_(clock)
        , screen_(screen)
    {
    }

    double Timer() const override { return clock_.Timer(); }
    QDateTime Now() const override { return clock_.Now(); }
    void Pause(double seconds) override;

private:
    runtime::Clock& clock_;
    runtime::EventPump& screen_;
};

} // namespace velmora::terminal
