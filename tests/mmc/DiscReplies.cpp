// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/mmc/Bytes.h"
#include "tests/mmc/Replies.h"

#include <algorithm>

namespace velmora::mmc {

namespace {

// What a track number or an address refers to: a track of the disc, or the next one.
struct Place {
    int number = 1;
    Track track;
    bool invisible = false;
};

Place TrackToCome(const Disc& disc)
{
    Track track;
    track.session = disc.closedSessions + 1;
    track.start = disc.NextStart();
    return {static_cast<int>(disc.tracks.size()) + 1, track, true};
}

// The number of tracks, including the next one, as drives count.
int CountedTracks(const Disc& disc)
{
    const int recorded = static_cast<int>(disc.tracks.size());
    const bool another = !disc.finalized && disc.OpenTrack() == nullptr;
    return disc.Overwritable() ? 1 : recorded + (another ? 1 : 0);
}

int CountedSessions(const Disc& disc)
{
    if (disc.Overwritable() || disc.Rule() == Rules::None) {
        return 1;
    }
    return disc.closedSessions + (disc.finalized ? 0 : 1);
}

// A CD sector's address in minutes, seconds and frames.
void PutTime(Reply& reply, std::size_t at, std::int64_t address)
{
    const std::int64_t frames = address + 150;
    reply[at] = static_cast<std::uint8_t>(frames / (60L * 75));
    reply[at + 1] = static_cast<std::uint8_t>(frames / 75 % 60);
    reply[at + 2] = static_cast<std::uint8_t>(frames % 75);
}

int DiscState(const Disc& disc)
{
    if (disc.Overwritable()) {
        return 3;
    }
    if (disc.finalized || disc.Rule() == Rules::None) {
        return 2;
    }
    return disc.Blank() ? 0 : 1;
}

int LastSessionState(const Disc& disc)
{
    if (disc.Overwritable() || disc.finalized || disc.Rule() == Rules::None) {
        return 3;
    }
    const bool begun = !disc.tracks.empty() && disc.tracks.back().session > disc.closedSessions;
    return begun ? 1 : 0;
}

int FirstTrackOfLastSession(const Disc& disc)
{
    const int last = CountedSessions(disc);
    const auto found = std::ranges::find(disc.tracks, last, &Track::session);
    return static_cast<int>(found - disc.tracks.begin()) + 1;
}

Place Find(const Disc& disc, int kind, std::int64_t number)
{
    const auto count = static_cast<std::int64_t>(disc.tracks.size());
    if (disc.Overwritable()) {
        Track whole;
        whole.size = disc.formattedSize;
        whole.written = disc.formattedSize;
        return {1, whole, false};
    }
    for (std::int64_t i = 0; i < count; ++i) {
        const Track& track = disc.tracks[static_cast<std::size_t>(i)];
        const bool byAddress = kind == 0 && number >= track.start
            && number < track.start + std::max(track.size, track.written);
        const bool open = kind == 1 && number == 0xFF && !track.closed;
        if (byAddress || open || (kind == 1 && number == i + 1)
            || (kind == 2 && number == track.session)) {
            return {static_cast<int>(i) + 1, track, open && !track.reserved};
        }
    }
    const bool next = !disc.finalized && (kind != 1 || number == 0xFF || number == count + 1);
    if (!next) {
        return {0, {}, false};
    }
    return TrackToCome(disc);
}

void AppendTocEntry(
    Reply& reply, int session, int point, std::int64_t address, std::initializer_list<int> fixed)
{
    const std::size_t at = reply.size();
    reply.resize(at + 11);
    reply[at] = static_cast<std::uint8_t>(session);
    reply[at + 1] = 0x14;
    reply[at + 3] = static_cast<std::uint8_t>(point);
    if (fixed.size() == 0) {
        PutTime(reply, at + 8, address);
    } else {
        std::ranges::transform(fixed,
            reply.begin() + static_cast<std::ptrdiff_t>(at) + 8,
            [](int value) { return static_cast<std::uint8_t>(value); });
    }
}

// Format 2: the contents of the closed sessions' lead-ins.
Reply FullTable(const Disc& disc)
{
    Reply reply(4);
    for (int session = 1; session <= disc.closedSessions; ++session) {
        int first = 0;
        int last = 0;
        std::int64_t end = 0;
        Reply entries;
        for (std::size_t i = 0; i < disc.tracks.size(); ++i) {
            const Track& track = disc.tracks[i];
            if (track.session != session) {
                continue;
            }
            last = static_cast<int>(i) + 1;
            first = first == 0 ? last : first;
            end = track.start + track.size;
            AppendTocEntry(entries, session, last, track.start, {});
        }
        AppendTocEntry(reply, session, 0xA0, 0, {first, 0, 0});
        AppendTocEntry(reply, session, 0xA1, 0, {last, 0, 0});
        AppendTocEntry(reply, session, 0xA2, end, {});
        reply.insert(reply.end(), entries.begin(), entries.end());
    }
    reply[2] = 1;
    reply[3] = static_cast<std::uint8_t>(disc.closedSessions);
    return reply;
}

// Format 0: the closed tracks and the lead-out.
Reply TrackTable(const Disc& disc, bool asTime)
{
    Reply reply(4);
    const auto append = [&reply, asTime](int number, std::int64_t address) {
        const std::size_t at = reply.size();
        reply.resize(at + 8);
        reply[at + 1] = 0x14;
        reply[at + 2] = static_cast<std::uint8_t>(number);
        if (asTime) {
            PutTime(reply, at + 5, address);
        } else {
            Put32(reply, at + 4, address);
        }
    };
    int number = 0;
    if (disc.Overwritable()) {
        append(++number, 0);
    }
    for (const Track& track : disc.tracks) {
        if (track.session <= disc.closedSessions) {
            append(++number, track.start);
        }
    }
    append(0xAA, disc.End());
    reply[2] = 1;
    reply[3] = static_cast<std::uint8_t>(number);
    return reply;
}

// Format 1: where the last closed session begins.
Reply SessionTable(const Disc& disc)
{
    Reply reply(12);
    reply[2] = 1;
    reply[3] = static_cast<std::uint8_t>(std::max(1, disc.closedSessions));
    reply[5] = 0x14;
    for (std::size_t i = disc.tracks.size(); i-- > 0;) {
        if (disc.tracks[i].session == disc.closedSessions) {
            reply[6] = static_cast<std::uint8_t>(i + 1);
            Put32(reply, 8, disc.tracks[i].start);
        }
    }
    return reply;
}

// Format 4: the data pressed into a recordable CD.
Reply PressedInformation(const Disc& disc)
{
    Reply reply(28);
    reply[4] = 0xD4;
    reply[6] = disc.profile == 0x0A ? 0xC8 : 0x88;
    PutTime(reply, 8, -11075);
    reply[8] = 97;
    PutTime(reply, 12, disc.capacity);
    return reply;
}

} // namespace

Reply DiscInformation(const Disc& disc)
{
    Reply reply(34);
    const int sessions = CountedSessions(disc);
    const int tracks = CountedTracks(disc);
    Put16(reply, 0, 32);
    const bool erasable = ProfileOf(disc.profile).erasable;
    reply[2] = static_cast<std::uint8_t>(
        (erasable ? 0x10 : 0) | LastSessionState(disc) << 2 | DiscState(disc));
    reply[3] = 1;
    reply[4] = static_cast<std::uint8_t>(sessions);
    reply[5] = static_cast<std::uint8_t>(disc.Overwritable() ? 1 : FirstTrackOfLastSession(disc));
    reply[6] = static_cast<std::uint8_t>(tracks);
    reply[7] = 0x20;
    if (disc.Rule() == Rules::DvdPlusRw && disc.formatted) {
        reply[7] |= disc.growing ? 2 : 3; // the formatting in the background
    }
    reply[8] = 0xFF;
    std::fill_n(reply.begin() + 16, 8, std::uint8_t {0xFF});
    if (disc.IsCd() && !disc.finalized && disc.Rule() == Rules::Cd) {
        reply[8] = 0x00;
        reply[16] = reply[20] = 0;
        PutTime(reply, 17, disc.Blank() ? 438750 - 11325 : disc.NextStart() - 4500);
        PutTime(reply, 21, disc.capacity);
    }
    return reply;
}

Reply TrackInformation(const Disc& disc, int kind, std::int64_t number)
{
    const Place place = Find(disc, kind, number);
    if (place.number == 0) {
        return {};
    }
    const Track& track = place.track;
    const bool open = !track.closed && !disc.finalized;
    const bool random = disc.Overwritable();
    Reply reply(36);
    Put16(reply, 0, 34);
    reply[2] = static_cast<std::uint8_t>(place.number);
    reply[3] = static_cast<std::uint8_t>(track.session);
    reply[5] = static_cast<std::uint8_t>(0x04 | (track.damaged ? 0x20 : 0));
    const bool blank = !random && open && track.written == 0;
    reply[6] = static_cast<std::uint8_t>(
        0x01 | (track.reserved ? 0x80 : 0) | (blank ? 0x40 : 0) | (open && !random ? 0x20 : 0));
    reply[7] = static_cast<std::uint8_t>(
        (open && !track.damaged && !random ? 0x01 : 0) | (track.written > 0 ? 0x02 : 0));
    const std::int64_t end = track.reserved ? track.start + track.size : disc.capacity;
    const std::int64_t free
        = open && !random ? std::max<std::int64_t>(0, end - track.NextWritable()) : 0;
    Put32(reply, 8, track.start);
    Put32(reply, 12, open && !random ? track.NextWritable() : 0);
    Put32(reply, 16, free);
    Put32(reply, 20, disc.IsCd() ? 0 : 16);
    Put32(reply, 24, track.closed || track.reserved || random ? track.size : track.written + free);
    Put32(reply, 28, track.written > 0 ? track.NextWritable() - 1 : 0);
    return reply;
}

Reply TableOfContents(const Disc& disc, int format, bool asTime)
{
    const bool recorded = disc.closedSessions > 0 || disc.Overwritable();
    Reply reply;
    if (format == 4 && disc.Rule() == Rules::Cd) {
        reply = PressedInformation(disc);
    } else if (format == 0 && recorded) {
        reply = TrackTable(disc, asTime);
    } else if (format == 1 && recorded) {
        reply = SessionTable(disc);
    } else if (format == 2 && disc.IsCd() && recorded) {
        reply = FullTable(disc);
    } else {
        return {};
    }
    Put16(reply, 0, static_cast<std::int64_t>(reply.size() - 2));
    return reply;
}

Reply Capacity(const Disc& disc)
{
    Reply reply(8);
    Put32(reply, 0, std::max<std::int64_t>(0, disc.End() - 1));
    Put32(reply, 4, 2048);
    return reply;
}

Reply FormatCapacities(const Disc& disc)
{
    std::vector<std::pair<int, int>> formats; // type and its parameter
    switch (disc.profile) {
    case 0x13:
        formats = {{0x00, 2048}, {0x10, 16}, {0x13, 16}, {0x15, 16}};
        break;
    case 0x14:
        formats = {{0x00, 2048}, {0x10, 16}, {0x15, 16}};
        break;
    case 0x1A:
        formats = {{0x26, 0}};
        break;
    case 0x12:
        formats = {{0x00, 2048}, {0x01, 2048}};
        break;
    case 0x43:
        formats = {{0x00, 2048}, {0x30, 2048}, {0x31, 2048}};
        break;
    default:
        break;
    }
    Reply reply(12);
    reply[3] = static_cast<std::uint8_t>(8 * (formats.size() + 1));
    const bool unwritten = disc.growing && disc.formattedSize == 0;
    const bool known = disc.formatted && !unwritten;
    Put32(reply, 4, known ? disc.formattedSize : disc.capacity);
    Put32(reply, 8, 2048);
    reply[8] = static_cast<std::uint8_t>(known ? 2 : unwritten ? 3 : 1);
    for (const auto& [type, parameter] : formats) {
        const std::size_t at = reply.size();
        reply.resize(at + 8);
        Put32(reply, at, disc.capacity);
        Put32(reply, at + 4, parameter);
        reply[at + 4] = static_cast<std::uint8_t>(type << 2);
    }
    return reply;
}

} // namespace velmora::mmc
