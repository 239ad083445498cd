// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/Formatting.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "drive/SectorSize.h"
#include "drive/VolumeStart.h"
#include "drives/GrabbedDrive.h"
#include "drives/Messages.h"
#include "drives/StepWatch.h"

#include <libburn/libburn.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <thread>
#include <vector>

namespace velmora::drives {

using namespace Qt::StringLiterals;

namespace {

// Does this answer mean that the drive will never be done?
bool IsHopeless(const std::vector<Sense>& interruptions)
{
    constexpr std::ptrdiff_t kMostAttentions = 30;
    // what happened may be over
    const auto isAttention
        = [](const Sense& sense) { return sense.key == sense_key::kUnitAttention; };
    const std::ptrdiff_t attentions = std::ranges::count_if(interruptions, isAttention);
    return attentions > kMostAttentions || !std::ranges::all_of(interruptions, isAttention);
}

// Waits until the drive is done, or gone. The library itself would wait whatever the drive says.
void Follow(burn::burn_drive* drive, const DoneReport& report, Messages& messages, StepWatch& watch)
{
    constexpr std::chrono::milliseconds kStep {40};
    int most = 0;
    while (true) {
        burn::burn_progress seen {};
        const burn::burn_drive_status status = burn::burn_drive_get_status(drive, &seen);
        messages.Collect();
        if (status == burn::BURN_DRIVE_IDLE) {
            return;
        }
        const int done = std::clamp(seen.sector, 0, kAllDone);
        if (done > most) {
            most = done;
            watch.Move();
        }
        report(done);
        if (IsHopeless(messages.Interruptions())) {
            watch.TakeAway();
        }
        std::this_thread::sleep_for(kStep);
    }
}

void Judge(burn::burn_drive* drive, const Messages& messages)
{
    if (burn::burn_drive_wrote_well(drive) == 1 && !messages.Failed()) {
        return;
    }
    const qint32 cause = messages.Cause(Task::Erase);
    if (cause == drive::hresult::kNoMedia) {
        throw drive::PublishedError(cause,
            u"Le disque a été retiré avant la fin : il est peut-être effacé en partie. Remettez-le "
            "et effacez-le de nouveau."_s);
    }
    throw drive::PublishedError(
        cause == drive::hresult::kFail || cause == drive::hresult::kCommandTimeout
            ? drive::hresult::kEraseUnexpectedResponse
            : cause);
}

} // namespace

void BlankDisc(burn::burn_drive* drive, bool full, const DoneReport& report, StepWatch& watch)
{
    Messages messages;
    constexpr int kWholeDisc = 0;
    constexpr int kOnlyItsStart = 1;
    burn::burn_disc_pretend_full(drive); // even if unreadable, as after a failed burn
    burn::burn_disc_erase(drive, full ? kWholeDisc : kOnlyItsStart);
    Follow(drive, report, messages, watch);
    Judge(drive, messages);
}

void FormatDisc(burn::burn_drive* drive,
    Certification certification,
    const DoneReport& report,
    StepWatch& watch)
{
    constexpr int kAlthoughFormatted = 0x10;
    constexpr int kDefaultSize = 0x06;
    constexpr int kUncertified = 0x40;
    constexpr off_t kSizeOfItsOwn = 0;
    int how = kAlthoughFormatted;
    if (ProfileOf(drive) != drive::profile::kDvdPlusRw) {
        how |= kDefaultSize | (certification == Certification::No ? kUncertified : 0);
    }
    Messages messages;
    burn::burn_disc_format(drive, kSizeOfItsOwn, how);
    Follow(drive, report, messages, watch);
    Judge(drive, messages);
    burn::burn_drive_re_assess(drive, kNoFlags); // the disc has changed now
}

void WipeDisc(burn::burn_drive* drive, StepWatch& watch)
{
    constexpr std::array<off_t, 2> kPlaces {0, drive::kAnchorSector * drive::kSectorBytes};
    constexpr int kFlush = 1;
    std::vector<char> zeros(drive::kStartSectors * drive::kSectorBytes);
    Messages messages;
    for (const off_t place : kPlaces) {
        watch.Move();
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

bool NeedsFormat(burn::burn_drive* drive)
{
    return drive::FactsOfProfile(ProfileOf(drive)).needsFormatCommand && IsUnformatted(drive);
}

} // namespace velmora::drives
