// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/ProgressLine.h"

#include "terminal/console/FrenchText.h"
#include "terminal/console/ProgressPace.h"

#include <cmath>
#include <utility>

namespace velmora::terminal {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

double PerSecond(std::uint64_t bytes, milliseconds elapsed)
{
    return static_cast<double>(bytes) * 1000.0 / static_cast<double>(elapsed.count());
}

} // namespace

std::string SpeedText(std::uint64_t bytes, milliseconds elapsed)
{
    if (elapsed <= milliseconds::zero()) {
        return {};
    }
    return SizeText(static_cast<std::uint64_t>(PerSecond(bytes, elapsed))) + "/s";
}

ProgressLine::ProgressLine(TerminalScreen& screen, SteadyClock clock)
    : screen_(screen)
    , clock_(std::move(clock))
{
}

void ProgressLine::Begin(const std::string& phase)
{
    phase_ = phase;
    begun_ = shown_ = clock_();
    if (screen_.Style() == ProgressStyle::OneLine) {
        screen_.Progress(phase_ + "…");
    } else {
        screen_.Notice(phase_ + "…");
    }
}

void ProgressLine::ShowCount(const std::string& count)
{
    if (DueNow()) {
        screen_.Progress(phase_ + " : " + count);
    }
}

void ProgressLine::ShowBytes(std::uint64_t done, std::uint64_t total)
{
    if (!DueNow()) {
        return;
    }
    const double share = total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total);
    std::string line = phase_ + " : " + std::to_string(static_cast<int>(share * 100.0)) + " %";
    if (const auto elapsed = Elapsed(); done > 0 && elapsed >= kBeforeEstimate) {
        const double left = static_cast<double>(total - done) / PerSecond(done, elapsed);
        line += "   " + SpeedText(done, elapsed);
        line += "   reste " + DurationText(seconds(std::lround(left)));
    } else if (done > 0) {
        line += "   " + SpeedText(done, elapsed);
    }
    screen_.Progress(line);
}

void ProgressLine::End(const std::string& outcome)
{
    if (screen_.Style() == ProgressStyle::OneLine) {
        screen_.Progress({});
    } else {
        screen_.Notice(phase_ + " : " + outcome);
    }
}

void ProgressLine::Clear()
{
    if (screen_.Style() == ProgressStyle::OneLine) {
        screen_.Progress({});
    }
}

milliseconds ProgressLine::Elapsed() const
{
    return std::chrono::duration_cast<milliseconds>(clock_() - begun_);
}

bool ProgressLine::DueNow()
{
    if (screen_.Style() != ProgressStyle::OneLine) {
        return false;
    }
    const SteadyTime now = clock_();
    if (now - shown_ < kBetweenLines) {
        return false;
    }
    shown_ = now;
    return true;
}

} // namespace velmora::terminal
