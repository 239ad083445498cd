// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/mmc/Recorder.h"

#include <algorithm>

namespace velmora::mmc {

namespace {

constexpr std::int64_t kEccSectors = 16; // what a DVD's error correction joins

// Minutes, seconds and frames of a CD; sector 0 is at two seconds.
std::int64_t AddressOf(std::span<const std::uint8_t> time)
{
    return (time[0] * 60 + time[1]) * 75 + time[2] - 150;
}

} // namespace

Refusal WriteParameters::Choose(std::span<const std::uint8_t> page)
{
    if (page.size() < kSize || (page[0] & 0x3F) != 0x05 || page[1] != 0x32) {
        return kInvalidParameter;
    }
    const int type = page[2] & 0x0F;
    if (type > 2) {
        return kInvalidParameter;
    }
    std::ranges::copy(page.first(kSize), page_.begin());
    chosen_ = true;
    return {};
}

Refusal Recorder::Wrong(const char* what, std::int64_t address, Sense sense)
{
    violations_.push_back(std::string(what) + " (" + std::to_string(address) + ')');
    return sense;
}

Refusal Recorder::Prepare(std::int64_t address, std::int64_t sectors)
{
    if (disc_.Rule() == Rules::None) {
        return Wrong("WRITE to a disc that is only read", address, kCannotWrite);
    }
    return disc_.Overwritable() ? PrepareOverwrite(address, sectors)
                                : PrepareSequential(address, sectors);
}

Refusal Recorder::PrepareOverwrite(std::int64_t address, std::int64_t sectors)
{
    if (!disc_.formatted) {
        return Wrong("WRITE to an unformatted disc", address, kFormatCorrupted);
    }
    if (address < 0 || address + sectors > disc_.capacity) {
        return Wrong("WRITE beyond the disc", address, kAddressOutOfRange);
    }
    const std::int64_t limit = disc_.formattedSize;
    if (disc_.growing ? address > limit : address + sectors > limit) {
        return Wrong("WRITE beyond what is formatted", address, kInvalidWriteAddress);
    }
    if (disc_.Rule() == Rules::RestrictedOverwrite
        && (address % kEccSectors != 0 || sectors % kEccSectors != 0)) {
        return Wrong("WRITE of a part of a block of 32 KiB", address, kInvalidField);
    }
    return {};
}

Refusal Recorder::CheckParameters()
{
    const Rules rules = disc_.Rule();
    if (rules != Rules::Cd && rules != Rules::DvdDash) {
        return {};
    }
    if (!parameters_.Chosen()) {
        return Wrong("WRITE before the write parameters were chosen", 0, kSequenceError);
    }
    const WriteType type = parameters_.Type();
    if (type == WriteType::AtOnce) {
        const Track* open = disc_.OpenTrack();
        const bool laidOut = rules == Rules::Cd ? cued_ : open != nullptr && open->reserved;
        return laidOut ? Refusal {}
                       : Wrong("WRITE before the session was laid out", 0, kSequenceError);
    }
    const bool fits
        = rules == Rules::Cd ? type == WriteType::TrackAtOnce : type == WriteType::Incremental;
    if (!parameters_.ForData()) {
        return Wrong("WRITE of data in a mode for sound", 0, kIllegalMode);
    }
    if (!fits || (rules == Rules::DvdDash && disc_.sequentialOnly)) {
        return Wrong("WRITE in a mode that the disc doesn't know", 0, kIllegalMode);
    }
    return {};
}

Refusal Recorder::PrepareSequential(std::int64_t address, std::int64_t sectors)
{
    if (disc_.finalized) {
        return Wrong("WRITE to a closed disc", address, kCannotWrite);
    }
    if (const Refusal refusal = CheckParameters()) {
        return refusal;
    }
    if (cued_) {
        const Track& track = disc_.tracks.back();
        if (address != cueAddress_) {
            return Wrong("WRITE beside the cue sheet", address, kInvalidWriteAddress);
        }
        const bool fits = address + sectors <= track.start + track.size;
        return fits ? Refusal {} : Wrong("WRITE beyond the cue sheet", address, kEndOfArea);
    }
    const Track* open = disc_.OpenTrack();
    const std::int64_t next = open != nullptr ? open->NextWritable() : disc_.NextStart();
    if (address != next || (open != nullptr && open->damaged)) {
        return Wrong("WRITE beside the next writable address", address, kInvalidWriteAddress);
    }
    if (sectors > disc_.FreeSectors()) {
        return Wrong("WRITE beyond the end", address, kEndOfArea);
    }
    if (open == nullptr) {
        BeginTrack();
    }
    return {};
}

void Recorder::Advance(std::int64_t address, std::int64_t sectors)
{
    unsynchronised_ = true;
    if (disc_.Overwritable()) {
        disc_.formattedSize = std::max(disc_.formattedSize, address + sectors);
        return;
    }
    Track& track = disc_.tracks.back();
    if (cued_) {
        cueAddress_ += sectors;
    }
    track.written = std::max<std::int64_t>(0, address + sectors - track.start);
}

Track& Recorder::BeginTrack()
{
    Track track;
    track.session = disc_.closedSessions + 1;
    track.start = disc_.NextStart();
    return disc_.tracks.emplace_back(track);
}

Refusal Recorder::TakeCueSheet(std::span<const std::uint8_t> sheet)
{
    constexpr std::size_t kEntry = 8;
    constexpr std::uint8_t kLeadOut = 0xAA;
    if (disc_.Rule() != Rules::Cd || parameters_.Type() != WriteType::AtOnce
        || disc_.OpenTrack() != nullptr || disc_.finalized) {
        return Wrong("SEND CUE SHEET out of place", 0, kSequenceError);
    }
    std::int64_t begin = 0;
    std::int64_t start = 0;
    std::int64_t end = 0;
    for (; sheet.size() >= kEntry; sheet = sheet.subspan(kEntry)) {
        const std::int64_t address = AddressOf(sheet.subspan(5, 3));
        if (sheet[1] == kLeadOut) {
            end = address;
        } else if (sheet[1] == 1) {
            (sheet[2] == 0 ? begin : start) = address;
        } else if (sheet[1] != 0) {
            return kInvalidParameter; // one track is enough for data
        }
    }
    if (start != disc_.NextStart() || end <= start || begin > start) {
        return Wrong("SEND CUE SHEET for another place", start, kInvalidParameter);
    }
    if (end > disc_.capacity) {
        return Wrong("SEND CUE SHEET beyond the disc", end, kEndOfArea);
    }
    Track& track = BeginTrack();
    track.reserved = true;
    track.size = end - start;
    cued_ = true;
    cueAddress_ = begin;
    return {};
}

Refusal Recorder::Reserve(std::int64_t sectors)
{
    const Rules rules = disc_.Rule();
    if ((rules != Rules::DvdDash && rules != Rules::DvdPlusR && rules != Rules::BdR)
        || disc_.finalized || disc_.OpenTrack() != nullptr) {
        return Wrong("RESERVE TRACK out of place", sectors, kSequenceError);
    }
    const std::int64_t unit = rules == Rules::BdR ? 32 : kEccSectors;
    const std::int64_t rounded = (sectors + unit - 1) / unit * unit;
    if (sectors == 0 || rounded > disc_.FreeSectors()) {
        return kAddressOutOfRange;
    }
    const bool exact = rules == Rules::DvdDash && parameters_.Type() == WriteType::AtOnce;
    Track& track = BeginTrack();
    track.reserved = true;
    track.size = exact ? sectors : rounded;
    return {};
}

void Recorder::CloseTrack()
{
    Track* track = disc_.OpenTrack();
    if (track == nullptr) {
        return;
    }
    constexpr std::int64_t kRunOut = 2; // after a CD's track, recorded but not readable
    const bool atOnce = disc_.Rule() == Rules::Cd && !cued_;
    if (!track->reserved) {
        track->size = track->written + (atOnce ? kRunOut : 0);
    }
    track->closed = true;
    cued_ = false;
}

void Recorder::CloseSession(bool finalize)
{
    CloseTrack();
    if (!disc_.tracks.empty()) {
        disc_.closedSessions = disc_.tracks.back().session;
    }
    disc_.finalized = finalize;
}

void Recorder::Synchronise()
{
    unsynchronised_ = false;
    const Track* track = disc_.OpenTrack();
    if (track == nullptr || disc_.Overwritable()) {
        return;
    }
    const Rules rules = disc_.Rule();
    const bool full = track->reserved && track->written == track->size;
    if (cued_) {
        if (full) {
            CloseSession(!parameters_.Multi());
        } else {
            disc_.tracks.back().damaged = true; // nothing can be added to it
            cued_ = false;
        }
    } else if (rules == Rules::Cd && track->written > 0) {
        CloseTrack();
    } else if (rules == Rules::DvdDash && full && parameters_.Type() == WriteType::AtOnce) {
        CloseSession(true);
    }
}

Refusal Recorder::Close(std::uint8_t function)
{
    const Rules rules = disc_.Rule();
    if (unsynchronised_) {
        return Wrong("CLOSE TRACK SESSION before SYNCHRONIZE CACHE", function, kSequenceError);
    }
    if (disc_.Overwritable()) {
        disc_.growing = false; // the formatting in the background is over
        return {};
    }
    if (disc_.finalized || rules == Rules::None) {
        return Wrong("CLOSE TRACK SESSION of a closed disc", function, kCannotWrite);
    }
    switch (function) {
    case 1:
        if (disc_.OpenTrack() == nullptr) {
            return kInvalidField;
        }
        CloseTrack();
        return {};
    case 2:
        CloseSession((rules == Rules::Cd || rules == Rules::DvdDash) && !parameters_.Multi());
        return {};
    case 5:
    case 6:
        if (rules != Rules::DvdPlusR && rules != Rules::BdR) {
            return kInvalidField;
        }
        CloseSession(true);
        return {};
    default:
        return kInvalidField;
    }
}

Refusal Recorder::Blank(bool quick)
{
    const std::uint16_t profile = disc_.profile;
    if (profile != 0x0A && profile != 0x13 && profile != 0x14) {
        return Wrong("BLANK of a disc that can't be blanked", profile, kCannotBlank);
    }
    const Disc fresh = NewDisc(profile == 0x13 ? std::uint16_t {0x14} : profile, disc_.capacity);
    disc_ = fresh;
    disc_.sequentialOnly = quick && disc_.Rule() == Rules::DvdDash;
    Forget();
    return {};
}

Refusal Recorder::Format(std::uint8_t type, std::int64_t blocks)
{
    const std::uint16_t profile = disc_.profile;
    const bool toOverwrite = profile == 0x14 && (type == 0x00 || type == 0x10 || type == 0x15);
    const bool again
        = profile == 0x13 && (type == 0x00 || type == 0x10 || type == 0x13 || type == 0x15);
    const bool plus = profile == 0x1A && type == 0x26;
    const bool random = disc_.Rule() == Rules::RandomWrite
        && (type == 0x00 || type == 0x01 || (profile == 0x43 && (type == 0x30 || type == 0x31)));
    if (!toOverwrite && !again && !plus && !random) {
        return Wrong("FORMAT UNIT of a type that the disc doesn't know", type, kInvalidField);
    }
    if (blocks > disc_.capacity && static_cast<std::uint32_t>(blocks) != 0xFFFFFFFF) {
        return Wrong("FORMAT UNIT to more than the disc has", blocks, kInvalidField);
    }
    const bool grows = type == 0x13 || type == 0x15;
    const std::int64_t kept = type == 0x13 ? disc_.formattedSize : 0;
    const std::int64_t capacity = disc_.capacity;
    disc_ = NewDisc(toOverwrite ? std::uint16_t {0x13} : profile, capacity);
    disc_.formatted = true;
    disc_.growing = grows;
    disc_.formattedSize = grows ? kept : capacity;
    return {};
}

void Recorder::Forget()
{
    parameters_.Forget();
    cued_ = false;
    cueAddress_ = 0;
    unsynchronised_ = false;
}

} // namespace velmora::mmc
