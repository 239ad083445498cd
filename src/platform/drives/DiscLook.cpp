// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/SectorSize.h"
#include "drive/VolumeStart.h"
#include "drives/DiscQuestions.h"
#include "drives/DriveSpeeds.h"
#include "drives/Formatting.h"
#include "drives/GrabbedDrive.h"

#include <libburn/libburn.h>

#include <QtGlobal>

#include <algorithm>
#include <vector>

namespace velmora::drives {

namespace {

using drive::DiscInfo;
using drive::DiscState;

DiscState StateOf(burn::burn_drive* drive, int profile)
{
    switch (burn::burn_disc_get_status(drive)) {
    case burn::BURN_DISC_EMPTY:
        return DiscState::None;
    case burn::BURN_DISC_BLANK:
    case burn::BURN_DISC_APPENDABLE: {
        if (!LibraryWrites(profile) || burn::burn_drive_get_bd_r_pow(drive) != 0) {
            return DiscState::Unsupported;
        }
        if (IsOverwritable(profile)) {
            return DiscState::Overwritable;
        }
        const bool blank = burn::burn_disc_get_status(drive) == burn::BURN_DISC_BLANK;
        return blank ? DiscState::Blank : DiscState::Appendable;
    }
    case burn::BURN_DISC_FULL:
        return DiscState::Closed;
    default:
        return DiscState::Unsupported;
    }
}

// A disc that takes a session and then another one.
bool CanStayOpen(burn::burn_drive* drive)
{
    burn::burn_multi_caps* abilities = nullptr;
    if (burn::burn_disc_get_multi_caps(drive, burn::BURN_WRITE_NONE, &abilities, kNoFlags) != 1) {
        return false;
    }
    const bool multi = abilities->multi_session != 0;
    burn::burn_disc_free_multi_caps(&abilities);
    return multi;
}

bool ReadsAsNothing(burn::burn_drive* drive, qint64 first, std::size_t sectors)
{
    std::vector<std::byte> bytes(sectors * drive::kSectorBytes);
    try {
        ReadSectors(drive, first, bytes);
    } catch (const runtime::RuntimeError&) {
        return false; // what can't be read may be worth keeping
    }
    return std::ranges::all_of(bytes, [](std::byte byte) { return byte == std::byte {0}; });
}

bool LooksBlank(burn::burn_drive* drive)
{
    return IsUnformatted(drive)
        || (ReadsAsNothing(drive, 0, drive::kStartSectors)
            && ReadsAsNothing(drive, drive::kAnchorSector, 1));
}

drive::SessionFacts FactsOf(burn::burn_session* session)
{
    int count = 0;
    burn::burn_track** tracks = burn::burn_session_get_tracks(session, &count);
    drive::SessionFacts facts;
    for (int i = 0; i < count; ++i) {
        burn::burn_toc_entry entry {};
        burn::burn_track_get_entry(tracks[i], &entry);
        if (i == 0) {
            facts.firstSector = entry.start_lba;
        }
        facts.sectors = entry.start_lba + entry.track_blocks - facts.firstSector;
    }
    return facts;
}

QList<drive::SessionFacts> SessionsOf(burn::burn_drive* drive)
{
    QList<drive::SessionFacts> facts;
    burn::burn_disc* disc = burn::burn_drive_get_disc(drive);
    if (disc == nullptr) {
        return facts;
    }
    int count = 0;
    burn::burn_session** sessions = burn::burn_disc_get_sessions(disc, &count);
    for (int i = 0; i < count; ++i) { // incomplete ones come after the count
        facts.append(FactsOf(sessions[i]));
    }
    burn::burn_disc_free(disc);
    return facts;
}

void LookAtRoom(burn::burn_drive* drive, DiscInfo& info)
{
    info.freeSectors = burn::burn_disc_available_space(drive, nullptr) / drive::kSectorBytes;
    constexpr int kNextTrack = 0;
    int first = 0;
    int next = 0;
    const int told = burn::burn_disc_track_lba_nwa(drive, nullptr, kNextTrack, &first, &next);
    if (info.state == DiscState::Overwritable && info.freeSectors == 0) {
        DiscQuestions(drive, info).RequireFormatsTold();
    }
    if (info.state == DiscState::Appendable || info.state == DiscState::Blank) {
        if (told != 1) {
            DiscQuestions(drive, info).RequireNextTrackTold();
        }
        info.damaged = told != 1 || burn::burn_disc_next_track_is_damaged(drive, kNoFlags) != 0;
        info.nextWritable = told == 1 ? next : 0;
        info.lastSessionOpen = told == 1 && next > first;
        if (info.damaged) {
            info.freeSectors = 0;
        }
    }
}

qint64 TotalOf(burn::burn_drive* drive, const DiscInfo& info)
{
    if (info.state == DiscState::Overwritable) {
        return info.freeSectors;
    }
    if (info.state == DiscState::Closed) {
        return DiscQuestions(drive, info).ReadableSectors();
    }
    if (!info.damaged) {
        return info.nextWritable + info.freeSectors;
    }
    // A disc that reports no address to write at reports no capacity either.
    return info.sessions.isEmpty()
        ? 0
        : info.sessions.last().firstSector + info.sessions.last().sectors;
}

} // namespace

DiscInfo LookAtDisc(burn::burn_drive* drive)
{
    DiscInfo info;
    info.profile = ProfileOf(drive);
    info.state = StateOf(drive, info.profile);
    if (info.state == DiscState::None) {
        info.profile = 0;
        return info;
    }
    info.erasable = LibraryErases(info.profile);
    if (info.state == DiscState::Unsupported) {
        DiscQuestions(drive, info).RequireKnown();
        return info;
    }
    if (info.state != DiscState::Overwritable) {
        info.sessions = SessionsOf(drive);
    }
    info.writeSpeeds = SpeedsIn(WriteSpeedsOf(drive));
    if (info.state != DiscState::Closed) {
        LookAtRoom(drive, info);
    }
    if (info.state == DiscState::Overwritable) {
        info.heuristicallyBlank = LooksBlank(drive);
    } else if (info.state != DiscState::Closed) {
        info.heuristicallyBlank = info.state == DiscState::Blank;
        info.canStayOpen = CanStayOpen(drive);
    }
    info.totalSectors = TotalOf(drive, info);
    return info;
}

} // namespace velmora::drives
