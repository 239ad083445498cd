// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/mmc/Replies.h"

#include "tests/mmc/Bytes.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>

namespace velmora::mmc {

namespace {

void PutText(Reply& reply, std::size_t at, std::size_t length, std::string_view text)
{
    std::fill_n(reply.begin() + static_cast<std::ptrdiff_t>(at), length, std::uint8_t {' '});
    std::ranges::copy(text, reply.begin() + static_cast<std::ptrdiff_t>(at));
}

void Append(Reply& reply, std::initializer_list<int> bytes)
{
    for (const int byte : bytes) {
        reply.push_back(static_cast<std::uint8_t>(byte));
    }
}

struct Feature {
    int number;
    bool current;
    std::vector<int> data;
};

Reply ProfileList(const Disc& disc)
{
    Reply list;
    for (const Profile& profile : KnownProfiles()) {
        const bool current = profile.number == disc.profile;
        Append(list, {profile.number >> 8, profile.number & 0xFF, current ? 1 : 0, 0});
    }
    return list;
}

std::vector<Feature> FeaturesFor(const Disc& disc)
{
    const int profile = disc.profile;
    const bool disk = profile != 0;
    const bool cd = disc.IsCd();
    const bool bd = profile >= 0x40 && profile <= 0x43;
    const bool dvd = disk && !cd && !bd;
    const bool dash = disc.Rule() == Rules::DvdDash && !disc.sequentialOnly;
    const bool streams = dash || disc.Rule() == Rules::BdR;
    const bool formattable = disc.Overwritable() || profile == 0x14;
    return {
        {0x0001, true, {0, 0, 0, 7, 1, 0, 0, 0}},
        {0x0003, true, {0x39, 0, 0, 0}}, // tray, ejects, loads, locks
        {0x0010, disk, {0, 0, 8, 0, 0, 0x10, 1, 0}},
        {0x001D, cd, {}},
        {0x001E, cd, {0, 0, 0, 0}},
        {0x001F, dvd, {0, 0, 0, 0}},
        {0x0020, disc.Overwritable(), {0, 0, 0, 0, 0, 0, 8, 0, 0, 0x10, 1, 0}},
        {0x0021, streams, {0xFF, 1, 1, 1, 16, 0, 0, 0}},
        {0x0023, formattable, {0x0F, 0, 0, 0, 0, 0, 0, 0}},
        {0x0026, disc.Rule() == Rules::RestrictedOverwrite, {}},
        {0x002A, disc.Rule() == Rules::DvdPlusRw, {1, 0, 0, 0}},
        {0x002B, profile == 0x1B, {1, 0, 0, 0}},
        {0x002D, disc.Rule() == Rules::Cd, {0x47, 0, 0, 0x3F}},
        {0x002E, disc.Rule() == Rules::Cd, {0x60, 0, 0x20, 0}},
        {0x002F, disc.Rule() == Rules::DvdDash, {0x4E, 0, 0, 0}},
        {0x0037, profile == 0x0A, {0, 0xFF, 0, 0}},
        {0x0038, disc.pseudoOverwrite, {0, 0, 0, 0}},
        {0x003B, profile == 0x2B, {1, 0, 0, 0}},
        {0x0040, bd, {1, 0, 0, 0}},
        {0x0041, profile == 0x41 || profile == 0x43, {1, 0, 0, 0}},
        {0x0107, disk, {0x0F, 0, 0, 0}},
    };
}

void AppendFeature(Reply& reply, int number, bool current, const Reply& data)
{
    Append(
        reply, {number >> 8, number & 0xFF, current ? 0x01 : 0x00, static_cast<int>(data.size())});
    reply.insert(reply.end(), data.begin(), data.end());
}

struct Speeds {
    std::int64_t read;
    std::vector<int> write; // 1000 bytes a second, fastest first
};

Speeds SpeedsFor(const Disc& disc)
{
    if (disc.profile == 0 || disc.IsCd()) {
        return {8467, {8467, 4234, 2822, 1411, 706}};
    }
    if (disc.profile >= 0x40 && disc.profile <= 0x43) {
        return {26973, {26973, 17982, 8991}};
    }
    return {22160, {22160, 16620, 11080, 5540}};
}

Reply CapabilitiesPage(const Disc& disc)
{
    const Speeds speeds = SpeedsFor(disc);
    const auto count = speeds.write.size();
    Reply page(32 + 4 * count);
    page[0] = 0x2A;
    page[1] = static_cast<std::uint8_t>(page.size() - 2);
    page[2] = 0x3F; // reads CD-R, CD-RW, DVD
    page[3] = 0x37; // writes CD-R, CD-RW, simulated, DVD-R, DVD-RAM
    page[4] = 0x70;
    page[5] = 0x13;
    page[6] = 0x2B;
    Put16(page, 8, speeds.read);
    Put16(page, 12, 2048); // buffer, KiB
    Put16(page, 14, speeds.read);
    Put16(page, 18, speeds.write.front());
    Put16(page, 20, speeds.write.front());
    Put16(page, 28, speeds.write.front());
    Put16(page, 30, static_cast<std::int64_t>(count));
    for (std::size_t i = 0; i < count; ++i) {
        Put16(page, 32 + 4 * i + 2, speeds.write[i]);
    }
    return page;
}

} // namespace

Reply InquiryReply()
{
    Reply reply(36);
    reply[0] = 0x05; // a drive for optical discs
    reply[1] = 0x80; // that can be changed
    reply[2] = 0x05;
    reply[3] = 0x02;
    reply[4] = 31;
    PutText(reply, 8, 8, "VELMORA");
    PutText(reply, 16, 16, "EMULATED DRIVE");
    PutText(reply, 32, 4, "1.00");
    return reply;
}

Reply ConfigurationReply(const Disc& disc, std::uint32_t first, bool onlyOne)
{
    Reply reply(8);
    const auto wanted = [first, onlyOne](int number) {
        const auto code = static_cast<std::uint32_t>(number);
        return onlyOne ? code == first : code >= first;
    };
    if (wanted(0)) {
        AppendFeature(reply, 0, true, ProfileList(disc));
    }
    for (const Feature& feature : FeaturesFor(disc)) {
        if (wanted(feature.number)) {
            AppendFeature(
                reply, feature.number, feature.current, {feature.data.begin(), feature.data.end()});
        }
    }
    Put32(reply, 0, static_cast<std::int64_t>(reply.size() - 4));
    Put16(reply, 6, disc.profile);
    return reply;
}

Reply ModeReply(const Disc& disc, const WriteParameters& parameters, int page)
{
    Reply body;
    switch (page) {
    case 0x01:
        Append(body, {0x01, 10, 0, 8, 0, 0, 0, 0, 8, 0, 0, 0});
        break;
    case 0x05:
        body.assign(parameters.Page().begin(), parameters.Page().end());
        break;
    case 0x2A:
        body = CapabilitiesPage(disc);
        break;
    default:
        return {};
    }
    Reply reply(8);
    Put16(reply, 0, static_cast<std::int64_t>(6 + body.size()));
    reply.insert(reply.end(), body.begin(), body.end());
    return reply;
}

Reply PerformanceReply(const Disc& disc, int type, bool write, std::uint32_t most)
{
    if (type != 0x00 && type != 0x03) {
        return {};
    }
    const Speeds speeds = SpeedsFor(disc);
    const std::int64_t end = disc.profile == 0 ? 0 : disc.capacity - 1;
    Reply reply(8);
    reply[4] = type == 0 && write ? 0x02 : 0x00;
    std::uint32_t written = 0;
    for (const int speed : speeds.write) {
        if (written++ >= most) {
            continue; // the length covers all
        }
        const std::size_t at = reply.size();
        reply.resize(at + 16);
        Put32(reply, at + 4, type == 3 ? end : speed);
        Put32(reply, at + 8, type == 3 ? speeds.read : end);
        Put32(reply, at + 12, speed);
        if (type == 0) {
            break; // one line from the first sector to the last
        }
    }
    const std::size_t count = type == 0 ? 1 : speeds.write.size();
    Put32(reply, 0, static_cast<std::int64_t>(4 + 16 * count));
    return reply;
}

} // namespace velmora::mmc
