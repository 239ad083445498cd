// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/Media.h"

#include <algorithm>

namespace velmora::virtualdrive {

namespace {

using enum Recording;
using enum Formatting;

constexpr qint64 kLargestCd = 404'850;    // 90 minutes
constexpr qint64 kLargestDvd = 4'173'824; // two layers

constexpr qint64 kCdFirstGap = 11'400;
constexpr qint64 kCdLaterGap = 6'900;
constexpr qint64 kDvdGap = 2'048;
constexpr qint64 kEccBlock = 16; // sectors that DVD and BD drives write at once

// 1x is 75 sectors per second on a CD, 680 on a DVD and 2195 on a BD.
constexpr std::array<quint32, 6> kNoSpeeds {};
constexpr std::array<quint32, 6> kCdRSpeeds {3600, 3000, 2400, 1800, 1200, 600};
constexpr std::array<quint32, 6> kCdRwSpeeds {1800, 1200, 750, 300};
constexpr std::array<quint32, 6> kDvdRSpeeds {10'880, 8160, 5440, 4080, 2720};
constexpr std::array<quint32, 6> kDvdRDlSpeeds {5440, 4080, 2720, 1360};
constexpr std::array<quint32, 6> kDvdMinusRwSpeeds {4080, 2720, 1360};
constexpr std::array<quint32, 6> kDvdPlusRwSpeeds {5440, 4080, 2720, 1632};
constexpr std::array<quint32, 6> kDvdPlusRwDlSpeeds {1632};
constexpr std::array<quint32, 6> kDvdRamSpeeds {3400, 2040, 1360};
constexpr std::array<quint32, 6> kBdRSpeeds {35'120, 26'340, 17'560, 13'170, 8780, 4390};
constexpr std::array<quint32, 6> kBdReSpeeds {4390, 2195};

constexpr std::array kMedia {
    MediumFacts {u"cd-r",
        u"CD-R (80 min)",
        0x09,
        Once,
        359'847,
        true,
        Never,
        kCdFirstGap,
        kCdLaterGap,
        1,
        kCdRSpeeds},
    MediumFacts {u"cd-r-74",
        u"CD-R (74 min)",
        0x09,
        Once,
        333'000,
        true,
        Never,
        kCdFirstGap,
        kCdLaterGap,
        1,
        kCdRSpeeds},
    MediumFacts {u"cd-r-90",
        u"CD-R (90 min)",
        0x09,
        Once,
        kLargestCd,
        true,
        Never,
        kCdFirstGap,
        kCdLaterGap,
        1,
        kCdRSpeeds},
    MediumFacts {u"cd-rw",
        u"CD-RW",
        0x0A,
        Sequential,
        359'847,
        true,
        Never,
        kCdFirstGap,
        kCdLaterGap,
        1,
        kCdRwSpeeds},
    MediumFacts {u"dvd-r",
        u"DVD-R",
        0x11,
        Once,
        2'298'496,
        true,
        Never,
        kDvdGap,
        kDvdGap,
        kEccBlock,
        kDvdRSpeeds},
    MediumFacts {u"dvd-rw",
        u"DVD-RW",
        0x14,
        Sequential,
        2'298'496,
        true,
        Never,
        kDvdGap,
        kDvdGap,
        kEccBlock,
        kDvdMinusRwSpeeds},
    MediumFacts {u"dvd-rw-ow",
        u"DVD-RW (réinscriptible directement)",
        0x13,
        Overwritable,
        2'298'496,
        false,
        BeforeEachWrite,
        0,
        0,
        kEccBlock,
        kDvdMinusRwSpeeds},
    MediumFacts {u"dvd-ram",
        u"DVD-RAM",
        0x12,
        Overwritable,
        2'236'704,
        false,
        Never,
        0,
        0,
        1,
        kDvdRamSpeeds},
    MediumFacts {u"dvd+r",
        u"DVD+R",
        0x1B,
        Once,
        2'295'104,
        true,
        Never,
        kDvdGap,
        kDvdGap,
        kEccBlock,
        kDvdRSpeeds},
    MediumFacts {u"dvd+rw",
        u"DVD+RW",
        0x1A,
        Overwritable,
        2'295'104,
        false,
        BeforeFirstWrite,
        0,
        0,
        1,
        kDvdPlusRwSpeeds},
    MediumFacts {u"dvd-r-dl",
        u"DVD-R double couche",
        0x15,
        Once,
        4'171'712,
        false,
        Never,
        kDvdGap,
        kDvdGap,
        kEccBlock,
        kDvdRDlSpeeds},
    MediumFacts {u"dvd+r-dl",
        u"DVD+R double couche",
        0x2B,
        Once,
        kLargestDvd,
        true,
        Never,
        kDvdGap,
        kDvdGap,
        kEccBlock,
        kDvdRDlSpeeds},
    MediumFacts {u"dvd+rw-dl",
        u"DVD+RW double couche",
        0x2A,
        Overwritable,
        kLargestDvd,
        false,
        BeforeFirstWrite,
        0,
        0,
        1,
        kDvdPlusRwDlSpeeds},
    MediumFacts {
        u"bd-r", u"BD-R", 0x41, Once, 12'219'392, true, Never, 0, 0, kEccBlock, kBdRSpeeds},
    MediumFacts {u"bd-r-dl",
        u"BD-R double couche",
        0x41,
        Once,
        24'438'784,
        true,
        Never,
        0,
        0,
        kEccBlock,
        kBdRSpeeds},
    MediumFacts {u"bd-re",
        u"BD-RE",
        0x43,
        Overwritable,
        12'219'392,
        false,
        BeforeFirstWrite,
        0,
        0,
        1,
        kBdReSpeeds},
    MediumFacts {u"bd-re-dl",
        u"BD-RE double couche",
        0x43,
        Overwritable,
        24'438'784,
        false,
        BeforeFirstWrite,
        0,
        0,
        1,
        kBdReSpeeds},
    MediumFacts {u"cd-rom", u"CD-ROM", 0x08, Pressed, 0, false, Never, 0, 0, 1, kNoSpeeds},
    MediumFacts {u"dvd-rom", u"DVD-ROM", 0x10, Pressed, 0, false, Never, 0, 0, 1, kNoSpeeds},
    MediumFacts {u"bd-rom", u"BD-ROM", 0x40, Pressed, 0, false, Never, 0, 0, 1, kNoSpeeds},
    MediumFacts {
        u"inconnu", u"Disque inconnu", 0xFFFF, Unknown, 0, false, Never, 0, 0, 1, kNoSpeeds},
};

} // namespace

std::span<const MediumFacts> AllMedia() { return kMedia; }

const MediumFacts* FindMedium(QStringView key)
{
    const auto* found = std::ranges::find(kMedia, key, &MediumFacts::key);
    return found == kMedia.end() ? nullptr : found;
}

const MediumFacts& PressedFor(qint64 sectors)
{
    if (sectors <= kLargestCd) {
        return *FindMedium(u"cd-rom");
    }
    return *FindMedium(sectors <= kLargestDvd ? u"dvd-rom" : u"bd-rom");
}

} // namespace velmora::virtualdrive
