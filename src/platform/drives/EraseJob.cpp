// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/EraseJob.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "drive/SectorSize.h"
#include "drives/DriveSpeeds.h"
#include "drives/GrabbedDrive.h"
#include "drives/Messages.h"

#include <libburn/libburn.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>
#include <vector>

namespace velmora::drives {

namespace {

namespace profile = drive::profile;

// Seconds from the first sector of the disc to its last one.
int SecondsForAll(burn::burn_drive* drive, const drive::DiscInfo& disc)
{
    const std::vector<WriteSpeed> speeds = WriteSpeedsOf(drive);
    const qint64 sectors = std::max<qint64>(1, speeds.empty() ? 1 : speeds.front().sectors);
    return static_cast<int>(disc.totalSectors / sectors);
}

// Until the drive is done, or gone.
void Follow(burn::burn_drive* drive, EraseBoard& board, Messages& messages)
{
    constexpr std::chrono::milliseconds kStep {40};
    while (true) {
        burn::burn_progress seen {};
        const burn::burn_drive_status status = burn::burn_drive_get_status(drive, &seen);
        messages.Collect();
        if (status == burn::BURN_DRIVE_IDLE) {
            return;
        }
        board.done = std::clamp(seen.sector, 0, EraseBoard::kAll);
        std::this_thread::sleep_for(kStep);
    }
}

void Judge(burn::burn_drive* drive, const Messages& messages)
{
    if (burn::burn_drive_wrote_well(drive) == 1 && !messages.Failed()) {
        return;
    }
    const qint32 cause = messages.Cause(Task::Erase);
    throw drive::PublishedError(
        cause == drive::hresult::kFail || cause == drive::hresult::kCommandTimeout
            ? drive::hresult::kEraseUnexpectedResponse
            : cause);
}

void Blank(burn::burn_drive* drive, bool full, EraseBoard& board)
{
    Messages messages;
    constexpr int kWholeDisc = 0;
    constexpr int kOnlyItsStart = 1;
    burn::burn_disc_erase(drive, full ? kWholeDisc : kOnlyItsStart);
    Follow(drive, board, messages);
    Judge(drive, messages);
}

void Format(burn::burn_drive* drive, qint32 discProfile, EraseBoard& board)
{
    constexpr int kAlthoughFormatted = 0x10;
    constexpr int kDefaultSizeForced = 0x16;
    Messages messages;
    const int how = discProfile == profile::kDvdPlusRw ? kAlthoughFormatted : kDefaultSizeForced;
    constexpr off_t kSizeOfItsOwn = 0;
    burn::burn_disc_format(drive, kSizeOfItsOwn, how);
    Follow(drive, board, messages);
    Judge(drive, messages);
}

// What file systems begin with becomes zeros.
void Wipe(burn::burn_drive* drive)
{
    constexpr std::array<off_t, 2> kPlaces {0, 256 * drive::kSectorBytes};
    constexpr int kFlush = 1;
    std::vector<char> zeros(64UL * 1024);
    Messages messages;
    for (const off_t place : kPlaces) {
        const auto size = static_cast<off_t>(zeros.size());
        const int written
            = burn::burn_random_access_write(drive, place, zeros.data(), size, kFlush);
        messages.Collect();
        if (written != 1 || messages.Failed()) {
            throw drive::PublishedError(messages.Cause(Task::Erase));
        }
    }
}

bool IsUnformatted(burn::burn_drive* drive)
{
    int status = 0;
    int formats = 0;
    unsigned spare = 0;
    off_t size = 0;
    return burn::burn_disc_get_formats(drive, &status, &size, &spare, &formats) == 1
        && status == BURN_FORMAT_IS_UNFORMATTED;
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
        report_(elapsed, expected);
    } catch (...) {
        failure_ = std::current_exception(); // an erase can't be stopped
    }
}

void EraseTeller::RaiseFailure() const
{
    if (failure_) {
        std::rethrow_exception(failure_);
    }
}

void EraseDisc(burn::burn_drive* drive, bool full, EraseBoard& board)
{
    const drive::DiscInfo disc = LookAtDisc(drive);
    if (disc.state == drive::DiscState::None) {
        throw drive::PublishedError(drive::hresult::kNoMedia);
    }
    if (!disc.erasable) {
        throw drive::PublishedError(drive::hresult::kNotErasable);
    }
    board.guess = full ? SecondsForAll(drive, disc) : board.guess.load();
    const bool overwritten = disc.profile == profile::kDvdRam || disc.profile == profile::kDvdPlusRw
        || disc.profile == profile::kBdRe;
    if (!overwritten) {
        Blank(drive, full, board);
        return;
    }
    const bool unformatted = IsUnformatted(drive);
    const bool needsFormat
        = unformatted && disc.profile != profile::kDvdPlusRw; // before it can be written
    if (full || needsFormat) {
        Format(drive, disc.profile, board);
    } else if (!unformatted) {
        Wipe(drive);
    }
}

} // namespace velmora::drives
