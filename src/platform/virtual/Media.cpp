// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/Media.h"

#include <algorithm>

namespace velmora::virtualdrive {

namespace {

using drive::DiscFamily;
namespace capacity = drive::capacity;
namespace profile = drive::profile;

struct Gaps {
    qint64 first;
    qint64 later;
};

/// Sectors that drives leave between sessions.
Gaps GapsOf(DiscFamily family, Recording recording)
{
    if (recording != Recording::Once && recording != Recording::Sequential) {
        return {0, 0};
    }
    switch (family) {
    case DiscFamily::Cd:
        return {11'400, 6'900};
    case DiscFamily::Dvd:
        return {2'048, 2'048};
    default:
        return {0, 0};
    }
}

/// DVD and BD drives write this many sectors at once, unless they can change single ones.
qint64 PadOf(DiscFamily family, const drive::ProfileFacts& facts)
{
    constexpr qint64 kEccBlock = 16;
    const bool isInSessions
        = facts.recording == Recording::Once || facts.recording == Recording::Sequential;
    const bool isRestricted = facts.formatting == Formatting::BeforeEachWrite;
    return family != DiscFamily::Cd && (isInSessions || isRestricted) ? kEccBlock : 1;
}

/// @param sectors  0 for a pressed disc
MediumFacts Medium(QStringView key, QStringView name, qint32 profile, qint64 sectors = 0)
{
    const drive::ProfileFacts& facts = drive::FactsOfProfile(profile);
    const DiscFamily family = drive::FamilyOfProfile(profile);
    const Gaps gaps = GapsOf(family, facts.recording);
    const bool isInSessions
        = facts.recording == Recording::Once || facts.recording == Recording::Sequential;
    return {.key = key,
        .name = name,
        .profile = profile,
        .recording = facts.recording,
        .capacity = sectors,
        .canStayOpen = isInSessions && profile != profile::kDvdDashRDualLayer,
        .formatting = facts.formatting,
        .firstGap = gaps.first,
        .laterGap = gaps.later,
        .padTo = PadOf(family, facts),
        .speeds = facts.usualSpeeds};
}

} // namespace

std::span<const MediumFacts> AllMedia()
{
    static const std::array kMedia {
        Medium(u"cd-r", u"CD-R (80 min)", profile::kCdR, capacity::kCd80),
        Medium(u"cd-r-74", u"CD-R (74 min)", profile::kCdR, capacity::kCd74),
        Medium(u"cd-r-90", u"CD-R (90 min)", profile::kCdR, capacity::kCd90),
        Medium(u"cd-rw", u"CD-RW", profile::kCdRw, capacity::kCd80),
        Medium(u"dvd-r", u"DVD-R", profile::kDvdDashR, capacity::kDvdDashR),
        Medium(u"dvd-rw", u"DVD-RW", profile::kDvdDashRwSequential, capacity::kDvdDashR),
        Medium(u"dvd-rw-ow",
            u"DVD-RW (réinscriptible directement)",
            profile::kDvdDashRwOverwrite,
            capacity::kDvdDashR),
        Medium(u"dvd-ram", u"DVD-RAM", profile::kDvdRam, capacity::kDvdRam),
        Medium(u"dvd+r", u"DVD+R", profile::kDvdPlusR, capacity::kDvdPlusR),
        Medium(u"dvd+rw", u"DVD+RW", profile::kDvdPlusRw, capacity::kDvdPlusR),
        Medium(u"dvd-r-dl",
            u"DVD-R double couche",
            profile::kDvdDashRDualLayer,
            capacity::kDvdDashRDualLayer),
        Medium(u"dvd+r-dl",
            u"DVD+R double couche",
            profile::kDvdPlusRDualLayer,
            capacity::kDvdPlusRDualLayer),
        Medium(u"dvd+rw-dl",
            u"DVD+RW double couche",
            profile::kDvdPlusRwDualLayer,
            capacity::kDvdPlusRDualLayer),
        Medium(u"bd-r", u"BD-R", profile::kBdRSequential, capacity::kBluRay),
        Medium(
            u"bd-r-dl", u"BD-R double couche", profile::kBdRSequential, capacity::kBluRayDualLayer),
        Medium(u"bd-re", u"BD-RE", profile::kBdRe, capacity::kBluRay),
        Medium(u"bd-re-dl", u"BD-RE double couche", profile::kBdRe, capacity::kBluRayDualLayer),
        Medium(u"cd-rom", u"CD-ROM", profile::kCdRom),
        Medium(u"dvd-rom", u"DVD-ROM", profile::kDvdRom),
        Medium(u"bd-rom", u"BD-ROM", profile::kBdRom),
        Medium(u"inconnu", u"Disque inconnu", profile::kUnknown),
    };
    return kMedia;
}

const MediumFacts* FindMedium(QStringView key)
{
    const auto found = std::ranges::find(AllMedia(), key, &MediumFacts::key);
    return found == AllMedia().end() ? nullptr : &*found;
}

const MediumFacts& PressedFor(qint64 sectors)
{
    if (sectors <= capacity::kCd90) {
        return *FindMedium(u"cd-rom");
    }
    const bool isDvd = sectors <= capacity::kDvdPlusRDualLayer;
    return *FindMedium(isDvd ? u"dvd-rom" : u"bd-rom");
}

} // namespace velmora::virtualdrive
