// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/TerminalScreen.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

namespace velmora::terminal {

using SteadyTime = std::chrono::steady_clock::time_point;
using SteadyClock = std::function<SteadyTime()>;

/// Shows the phases of a job one after the other, in the style of the screen.
class ProgressLine {
public:
    ProgressLine(TerminalScreen& screen, SteadyClock clock);

    /// A phase begins; its name is a noun, as in "Écriture de l'image".
    void Begin(const std::string& phase);
    /// What was counted so far, as in "1 234 éléments".
    void ShowCount(const std::string& count);
    /// How much of a known whole is done: percent, speed, and the time that is left once it can be
    /// told.
    void ShowBytes(std::uint64_t done, std::uint64_t total);
    /// The phase is over, with what came out; the line is gone from a terminal.
    void End(const std::string& outcome);
    /// The phase broke off: the line is gone, and nothing is said.
    void Clear();

    /// Since the phase began.
    std::chrono::milliseconds Elapsed() const;

private:
    bool DueNow();

    TerminalScreen& screen_;
    SteadyClock clock_;
    std::string phase_;
    SteadyTime begun_ {};
    SteadyTime shown_ {};
};

/// "123,4 Mo/s"; empty when no time has passed.
std::string SpeedText(std::uint64_t bytes, std::chrono::milliseconds elapsed);

} // namespace velmora::terminal
