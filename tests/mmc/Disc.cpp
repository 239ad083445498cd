// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/mmc/Disc.h"

#include <algorithm>
#include <array>

namespace velmora::mmc {

namespace {

constexpr std::array kProfiles {
    Profile {0x43, "BD-RE", Rules::RandomWrite, true, 11826176},
    Profile {0x41, "BD-R", Rules::BdR, false, 12219392},
    Profile {0x40, "BD-ROM", Rules::None, false, 12219392},
    Profile {0x2B, "DVD+R DL", Rules::DvdPlusR, false, 4173824},
    Profile {0x1B, "DVD+R", Rules::DvdPlusR, false, 2295104},
    Profile {0x1A, "DVD+RW", Rules::DvdPlusRw, true, 2295104},
    Profile {0x15, "DVD-R DL", Rules::DvdDash, false, 4171712},
    Profile {0x14, "DVD-RW sequential", Rules::DvdDash, true, 2297888},
    Profile {0x13, "DVD-RW overwrite", Rules::RestrictedOverwrite, true, 2297888},
    Profile {0x12, "DVD-RAM", Rules::RandomWrite, true, 2236704},
    Profile {0x11, "DVD-R", Rules::DvdDash, false, 2297888},
    Profile {0x10, "DVD-ROM", Rules::None, false, 2295104},
    Profile {0x0A, "CD-RW", Rules::Cd, true, 359845},
    Profile {0x09, "CD-R", Rules::Cd, false, 359845},
    Profile {0x08, "CD-ROM", Rules::None, false, 359845},
};

// Sectors between the end of a closed session and the start of the next one.
std::int64_t SessionGap(const Disc& disc)
{
    switch (disc.Rule()) {
    case Rules::Cd:
        return disc.closedSessions == 1 ? 11400 : 6900;
    case Rules::DvdDash:
    case Rules::DvdPlusR:
        return 2048;
    default:
        return 0;
    }
}

} // namespace

std::vector<Profile> KnownProfiles() { return {kProfiles.begin(), kProfiles.end()}; }

Profile ProfileOf(std::uint16_t number)
{
    const auto* found = std::ranges::find(kProfiles, number, &Profile::number);
    return found == kProfiles.end() ? Profile {number, "unknown"} : *found;
}

bool Disc::Overwritable() const
{
    const Rules rules = Rule();
    return rules == Rules::DvdPlusRw || rules == Rules::RestrictedOverwrite
        || rules == Rules::RandomWrite;
}

Track* Disc::OpenTrack()
{
    return tracks.empty() || tracks.back().closed ? nullptr : &tracks.back();
}

const Track* Disc::OpenTrack() const
{
    return tracks.empty() || tracks.back().closed ? nullptr : &tracks.back();
}

std::int64_t Disc::NextStart() const
{
    if (tracks.empty()) {
        return 0;
    }
    const Track& last = tracks.back();
    const bool sessionClosed = last.session <= closedSessions;
    return last.start + last.size + (sessionClosed ? SessionGap(*this) : 0);
}

std::int64_t Disc::FreeSectors() const
{
    if (finalized) {
        return 0;
    }
    if (const Track* open = OpenTrack()) {
        const std::int64_t end = open->reserved ? open->start + open->size : capacity;
        return open->damaged ? 0 : end - open->NextWritable();
    }
    return std::max<std::int64_t>(0, capacity - NextStart());
}

std::int64_t Disc::End() const
{
    if (Overwritable()) {
        return formattedSize;
    }
    if (tracks.empty()) {
        return 0;
    }
    const Track& last = tracks.back();
    return last.closed ? last.start + last.size : last.NextWritable();
}

Disc NewDisc(std::uint16_t profile, std::int64_t capacity)
{
    Disc disc;
    disc.profile = profile;
    disc.capacity = capacity != 0 ? capacity : ProfileOf(profile).capacity;
    if (disc.Overwritable() && disc.Rule() != Rules::DvdPlusRw) {
        disc.formatted = true;
        disc.formattedSize = disc.capacity;
    }
    return disc;
}

Disc ClosedDisc(std::uint16_t profile, std::int64_t sectors)
{
    Disc disc = NewDisc(profile);
    disc.tracks.push_back({1, 0, sectors, sectors, true, false, false});
    disc.closedSessions = 1;
    disc.finalized = true;
    return disc;
}

} // namespace velmora::mmc
