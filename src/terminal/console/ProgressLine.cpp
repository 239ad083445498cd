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

std::string SpeedText(double bytesPerSecond)
{
    return SizeText(static_cast<std::uint64_t>(bytesPerSecond)) + "/s";
}

} // namespace

std::string SpeedText(std::uint64_t bytes, milliseconds elapsed)
{
    if (elapsed <= milliseconds::zero()) {
        return {};
    }
    return SpeedText(static_cast<double>(bytes) * 1000.0 / static_cast<double>(elapsed.count()));
}

std::function<double()> SecondsOf(SteadyClock clock)
{
    return [clock = std::move(clock)] {
        return std::chrono::duration<double>(clock().time_since_epoch()).count();
    };
}

std::string PaceText(const runtime::ProgressEstimate& estimate, const std::string& middle)
{
    const std::optional<double> speed = estimate.PerSecond();
    const std::optional<double> left = estimate.SecondsLeft();
    return (speed ? "   " + SpeedText(*speed) : std::string()) + middle
        + (left ? "   reste " + DurationText(seconds(std::lround(*left))) : std::string());
}

ProgressLine::ProgressLine(TerminalScreen& screen, SteadyClock clock)
    : screen_(screen)
    , clock_(std::move(clock))
    , estimate_(SecondsOf(clock_))
{
}

void ProgressLine::Begin(JobPhase phase, const std::string& name)
{
    phase_ = phase;
    name_ = name;
    begun_ = shown_ = clock_();
    estimate_.Begin();
    Tell({});
    if (screen_.Style() == ProgressStyle::OneLine) {
        screen_.Progress(name_ + "…");
    } else {
        screen_.Notice(name_ + "…");
    }
}

void ProgressLine::ShowEntries(std::uint64_t entries)
{
    Tell(Amount {.unit = Unit::Entries, .done = entries});
    if (DueNow()) {
        screen_.Progress(name_ + " : " + CountText(entries, "élément", "éléments"));
    }
}

void ProgressLine::ShowBytes(std::uint64_t done, std::uint64_t total)
{
    estimate_.Reach(static_cast<qint64>(done), static_cast<qint64>(total));
    Tell(Amount {.done = done,
        .total = total,
        .perSecond = estimate_.PerSecond(),
        .secondsLeft = estimate_.SecondsLeft()});
    if (!DueNow()) {
        return;
    }
    const double share = total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total);
    screen_.Progress(name_ + " : " + std::to_string(static_cast<int>(share * 100.0)) + " %"
        + PaceText(estimate_));
}

void ProgressLine::End(const std::string& outcome)
{
    if (screen_.Style() == ProgressStyle::OneLine) {
        screen_.Progress({});
    } else {
        screen_.Notice(name_ + " : " + outcome);
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

void ProgressLine::Tell(const std::optional<Amount>& amount)
{
    screen_.Tell(PhaseProgress {.phase = phase_, .amount = amount});
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
