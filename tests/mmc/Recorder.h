// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/mmc/Bytes.h"
#include "tests/mmc/Disc.h"
#include "tests/mmc/Sense.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace velmora::mmc {

/// How a CD's or DVD's track is written, as mode page 05 requests it.
enum class WriteType : std::uint8_t { Incremental = 0, TrackAtOnce = 1, AtOnce = 2 };

/// The write parameters page, 05h (MMC-5, 7.5): the drive's, and what the host made of it.
class WriteParameters {
public:
    static constexpr std::size_t kSize = 52;

    const std::array<std::uint8_t, kSize>& Page() const { return page_; }
    WriteType Type() const { return static_cast<WriteType>(page_[2] & 0x0F); }
    /// Sectors of 2048 bytes are requested.
    bool ForData() const { return (page_[3] & 0x0F) >= 4 && (page_[4] & 0x0F) == 8; }
    /// Another session may follow.
    bool Multi() const { return page_[3] >> 6 == 3; }
    /// Chosen by the host for the disc that is in the drive now.
    bool Chosen() const { return chosen_; }
    void Forget() { *this = {}; }

    /// Accepts a page from the host. Refused: another length, other write types.
    Refusal Choose(std::span<const std::uint8_t> page);

private:
    std::array<std::uint8_t, kSize> page_ {0x05, 0x32, 0x40, 0x04, 0x08};
    bool chosen_ = false;
};

/// Checks that the host respects what a disc allows: where the next sector goes, what must come
/// before it, when a track, a session and the disc end. A drive would refuse the same.
class Recorder {
public:
    explicit Recorder(Disc& disc)
        : disc_(disc)
    {
    }

    WriteParameters& Parameters() { return parameters_; }
    /// Sentences on what the host did wrong; empty for a correct host.
    std::vector<std::string>& Violations() { return violations_; }
    /// Written but not made safe by SYNCHRONIZE CACHE.
    bool Unsynchronised() const { return unsynchronised_; }

    /// May these sectors be written now? A track is begun if need be.
    Refusal Prepare(std::int64_t address, std::int64_t sectors);
    /// Notes that the sectors from the address on are written.
    void Advance(std::int64_t address, std::int64_t sectors);

    Refusal TakeCueSheet(std::span<const std::uint8_t> sheet);
    Refusal Reserve(std::int64_t sectors);
    void Synchronise();
    /// CLOSE TRACK SESSION with its function number (MMC-5, 6.3).
    Refusal Close(std::uint8_t function);
    Refusal Blank(bool quick);
    /// FORMAT UNIT with a format type and its number of blocks.
    Refusal Format(std::uint8_t type, std::int64_t blocks);
    /// The disc was changed: earlier requests no longer count.
    void Forget();

private:
    Refusal Wrong(const char* what, std::int64_t address, Sense sense);
    Refusal PrepareOverwrite(std::int64_t address, std::int64_t sectors);
    Refusal PrepareSequential(std::int64_t address, std::int64_t sectors);
    Refusal CheckParameters();
    Track& BeginTrack();
    void CloseTrack();
    void CloseSession(bool finalize);

    Disc& disc_;
    WriteParameters parameters_;
    std::vector<std::string> violations_;
    bool unsynchronised_ = false;
    bool cued_ = false;           // a cue sheet laid out the session
    std::int64_t cueAddress_ = 0; // the next sector of it, the pregap's included
};

} // namespace velmora::mmc
