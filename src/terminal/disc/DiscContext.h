// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/Mastering.h"
#include "runtime/Clock.h"
#include "runtime/EventPump.h"
#include "terminal/console/LineSource.h"
#include "terminal/console/ProgressLine.h"
#include "terminal/console/TerminalScreen.h"
#include "terminal/disc/WriteWitness.h"

#include <functional>

namespace velmora::terminal {

/// What a command that changes a disc needs from its process.
struct DiscContext {
    TerminalScreen& screen;
    LineSource& input;
    imapi::Mastering& mastering; ///< over drives that the witness sees
    WriteWitness& witness;
    runtime::EventPump& pump;
    runtime::Clock& clock;
    std::function<bool()> stopRequested; ///< asked at every pump
    /// From here on a second request to stop doesn't end the process (true), or does (false): a
    /// drive that is cut off in a write may keep its disc.
    std::function<void(bool)> insistOnOrderlyEnd;
    SteadyClock steadyClock {std::chrono::steady_clock::now};
};

} // namespace velmora::terminal
