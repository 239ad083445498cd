// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/ProgressEstimate.h"
#include "terminal/console/TerminalScreen.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace velmora::terminal {

using SteadyTime = std::chrono::steady_clock::time_point;
using SteadyClock = std::function<SteadyTime()>;

/// Shows the phases of a job one after another, in the style of the screen.
class ProgressLine {
public:
    ProgressLine(TerminalScreen& screen, SteadyClock clock);

    /// A phase begins; its name is a noun, as in "Écriture de l'image".
    void Begin(JobPhase phase, const std::string& name);
    /// Shows how many entries were found so far.
    void ShowEntries(std::uint64_t entries);
    /// Shows how much of a known total is done: percent, speed, and the time left once it is known.
    void ShowBytes(std::uint64_t done, std::uint64_t total);
    /// The phase is over, with its result; the line is gone from a terminal.
    void End(const std::string& outcome);
    /// The phase was aborted: the line is gone, and nothing is said.
    void Clear();

    /// Since the phase began.
    std::chrono::milliseconds Elapsed() const;

private:
    void Tell(const std::optional<Amount>& amount);
    bool DueNow();

    TerminalScreen& screen_;
    SteadyClock clock_;
    JobPhase phase_ = JobPhase::Working;
    std::string name_;
    runtime::ProgressEstimate estimate_;
    SteadyTime begun_ {};
    SteadyTime shown_ {};
};

/// The clock in the form that an estimate needs.
std::function<double()> SecondsOf(SteadyClock clock);

/// "123,4 Mo/s"; empty when no time has passed.
std::string SpeedText(std::uint64_t bytes, std::chrono::milliseconds elapsed);

/// An estimate of bytes as text: speed and time left, as far as known, each after three blanks,
/// with the middle part between them.
std::string PaceText(const runtime::ProgressEstimate& estimate, const std::string& middle = {});

} // namespace velmora::terminal
