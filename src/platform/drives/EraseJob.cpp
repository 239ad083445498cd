// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/EraseJob.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "drives/DriveSpeeds.h"
#include "drives/Formatting.h"
#include "drives/GrabbedDrive.h"
#include "drives/StepWatch.h"

#include <libburn/libburn.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <vector>

namespace velmora::drives {

namespace {

// Seconds from the first sector of the disc to its last one.
int SecondsForAll(burn::burn_drive* drive, const drive::DiscInfo& disc)
{
    const std::vector<WriteSpeed> speeds = WriteSpeedsOf(drive);
    const qint64 sectors = std::max<qint64>(1, speeds.empty() ? 1 : speeds.front().sectors);
    return static_cast<int>(disc.totalSectors / sectors);
}

// How long a full erase may go without reporting progress: as long as at half of 1x, as the disc
// may be read afterwards.
std::chrono::seconds MostSecondsForAll(const drive::DiscInfo& disc)
{
    using namespace std::chrono_literals;
    const qint64 single = drive::SingleSpeedOf(drive::MediaTypeOfProfile(disc.profile));
    return std::max<std::chrono::seconds>(
        1h, std::chrono::seconds(2 * disc.totalSectors / std::max<qint64>(1, single)));
}

// A DVD-RW is, even when it can be overwritten: it is formatted anew for each recording.
bool IsBlankedToErase(int profile)
{
    return !IsOverwritable(profile)
        || drive::FactsOfProfile(profile).formatting == drive::Formatting::BeforeEachWrite;
}

} // namespace

EraseTeller::EraseTeller(
    const EraseBoard& board, const drive::EraseReport& report, const runtime::Clock& clock)
    : board_(board)
    , report_(report)
    , clock_(clock)
    , begun_(clock.Timer())
    , lastTold_(begun_ - 1)
{
}

void EraseTeller::Tell()
{
    constexpr double kPeriod = 0.5;
    constexpr int kMeaningful = EraseBoard::kAll / 50; // drives begin with a jump
    const double now = clock_.Timer();
    if (now - lastTold_ < kPeriod) {
        return;
    }
    lastTold_ = now;
    const double elapsed = now - begun_;
    const int done = board_.done;
    const double expected = done >= kMeaningful ? elapsed * EraseBoard::kAll / done
                                                : static_cast<double>(board_.guess);
    TellSeconds(static_cast<int>(elapsed), static_cast<int>(std::max(elapsed, expected)));
}

void EraseTeller::TellEnd()
{
    const int elapsed = static_cast<int>(Elapsed());
    TellSeconds(elapsed, elapsed);
}

void EraseTeller::TellSeconds(int elapsed, int expected)
{
    if (!report_ || failure_) {
        return;
    }
    try {
        stops_ = !report_(elapsed, expected) || stops_;
    } catch (...) {
        failure_ = std::current_exception(); // half an erase would be worse
    }
}

void EraseTeller::RaiseFailure() const
{
    if (failure_) {
        std::rethrow_exception(failure_);
    }
}

void EraseDisc(burn::burn_drive* drive, bool full, EraseBoard& board, StepWatch& watch)
{
    const drive::DiscInfo disc = LookAtDisc(drive);
    if (disc.state == drive::DiscState::None) {
        throw drive::PublishedError(drive::hresult::kNoMedia);
    }
    if (!disc.erasable) {
        throw drive::PublishedError(drive::hresult::kNotErasable);
    }
    watch.Enter(Step::Erasing, full ? std::optional(MostSecondsForAll(disc)) : std::nullopt);
    board.guess = full ? SecondsForAll(drive, disc) : board.guess.load();
    const auto report = [&board](int done) { board.done = done; };
    if (IsBlankedToErase(disc.profile)) {
        BlankDisc(drive, full, report, watch);
        return;
    }
    const bool unformatted = IsUnformatted(drive);
    if (full || NeedsFormat(drive)) {
        FormatDisc(drive, Certification::Yes, report, watch);
    }
    if (full || !unformatted) {
        WipeDisc(drive, watch); // formatting may leave what was recorded in place
    }
}

} // namespace velmora::drives
