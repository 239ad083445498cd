// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/mmc/Sense.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::mmc {

/// How a kind of disc is written.
enum class Rules : std::uint8_t {
    None, ///< no disc, or one that the drive can't write
    Cd,
    DvdDash, ///< DVD-R and DVD-RW in sequential recording
    DvdPlusR,
    BdR,
    DvdPlusRw,
    RestrictedOverwrite, ///< DVD-RW in whole blocks of 32 KiB
    RandomWrite,         ///< DVD-RAM and BD-RE
};

/// What all discs of an MMC profile have in common.
struct Profile {
    std::uint16_t number = 0;
    std::string_view name;
    Rules rules = Rules::None;
    bool erasable = false;
    std::int64_t capacity = 0; ///< sectors of an ordinary disc
};

/// The profiles that the emulated drive knows, in the order in which it tells them.
std::vector<Profile> KnownProfiles();
Profile ProfileOf(std::uint16_t number);

/// A track that holds data, is reserved for it, or both.
struct Track {
    int session = 1;
    std::int64_t start = 0;
    std::int64_t size = 0;    ///< sectors, once it is reserved or closed
    std::int64_t written = 0; ///< sectors from the start on
    bool closed = false;
    bool reserved = false;
    bool damaged = false; ///< it reports no address to write at

    std::int64_t NextWritable() const { return start + written; }
};

/// A disc, without its data.
struct Disc {
    std::uint16_t profile = 0; ///< 0 = no disc in the drive
    std::int64_t capacity = 0;
    bool finalized = false;
    bool formatted = false;         ///< overwritable discs: they can't be written before
    std::int64_t formattedSize = 0; ///< sectors
    bool growing = false;           ///< quickly formatted: grows as it is written
    bool sequentialOnly = false;    ///< quickly blanked DVD-RW: only one closed session
    bool pseudoOverwrite = false;   ///< BD-R that pretends that its sectors can be overwritten
    int closedSessions = 0;
    std::vector<Track> tracks;

    Rules Rule() const { return ProfileOf(profile).rules; }
    bool Overwritable() const;
    bool IsCd() const { return profile >= 8 && profile <= 10; }
    bool Blank() const { return tracks.empty() && closedSessions == 0; }
    Track* OpenTrack();
    const Track* OpenTrack() const;
    /// Where the next track would begin.
    std::int64_t NextStart() const;
    /// Sectors from the next writable one to the end of the disc or of the reserved track.
    std::int64_t FreeSectors() const;
    /// The sector after the last recorded one.
    std::int64_t End() const;
};

/// A new disc, as sold. Overwritable discs are formatted, except DVD+RW.
/// @param capacity  sectors, 0 = as an ordinary disc
Disc NewDisc(std::uint16_t profile, std::int64_t capacity = 0);

/// A disc that holds one session and nothing after it.
Disc ClosedDisc(std::uint16_t profile, std::int64_t sectors);

} // namespace velmora::mmc
