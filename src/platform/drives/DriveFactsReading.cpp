// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/DriveFactsReading.h"

#include "drive/DiscKinds.h"
#include "drives/DeviceHandle.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace velmora::drives {

namespace {

namespace profile = drive::profile;
using Bytes = std::vector<std::uint8_t>;

QString Field(const Bytes& reply, std::size_t at, std::size_t length)
{
    if (reply.size() < at + length) {
        return {};
    }
    const auto* text = reinterpret_cast<const char*>(reply.data() + at);
    QString field = QString::fromLatin1(text, static_cast<qsizetype>(length));
    while (field.endsWith(u' ') || field.endsWith(QChar::Null)) {
        field.chop(1);
    }
    return field;
}

std::size_t Number16(std::span<const std::uint8_t> bytes)
{
    return static_cast<std::size_t>(bytes[0]) << 8 | bytes[1];
}

// The descriptor of a feature without its head, from GET CONFIGURATION for that feature.
Bytes Feature(DeviceHandle& handle, std::uint8_t number)
{
    constexpr std::size_t kHead = 8;
    constexpr std::size_t kDescriptorHead = 4;
    constexpr std::uint8_t kOnlyThatOne = 2;
    constexpr std::size_t kMost = 264; // the longest descriptor, after the head
    const Bytes reply
        = handle.Ask({0x46, kOnlyThatOne, 0, number, 0, 0, 0, kMost >> 8, kMost & 0xFF, 0}, kMost);
    const std::span all(reply);
    if (all.size() < kHead + kDescriptorHead || Number16(all.subspan(kHead)) != number) {
        return {};
    }
    const std::size_t length = all[kHead + 3];
    const auto body = all.subspan(kHead + kDescriptorHead);
    const auto kept = body.first(std::min(length, body.size()));
    return {kept.begin(), kept.end()};
}

QList<qint32> ProfilesOf(DeviceHandle& handle)
{
    constexpr std::size_t kEntry = 4;
    const Bytes list = Feature(handle, 0x00);
    QList<qint32> profiles;
    for (std::size_t at = 0; at + kEntry <= list.size(); at += kEntry) {
        profiles.append(static_cast<qint32>(Number16(std::span(list).subspan(at))));
    }
    return profiles;
}

// What an old drive can write, by its page of capabilities.
QList<qint32> ProfilesByModePage(DeviceHandle& handle)
{
    constexpr std::size_t kHead = 8;
    constexpr std::uint8_t kMost = 32;
    const Bytes reply = handle.Ask({0x5A, 0, 0x2A, 0, 0, 0, 0, 0, kMost, 0}, kMost);
    QList<qint32> profiles;
    if (reply.size() <= kHead + 3) {
        return profiles;
    }
    const int writes = reply[kHead + 3];
    constexpr std::array<std::pair<int, qint32>, 4> kKinds {{{0x01, profile::kCdR},
        {0x02, profile::kCdRw},
        {0x10, profile::kDvdDashR},
        {0x20, profile::kDvdRam}}};
    for (const auto& [bit, written] : kKinds) {
        if ((writes & bit) != 0) {
            profiles.append(written);
        }
    }
    return profiles;
}

bool LoadsMedia(DeviceHandle& handle)
{
    constexpr int kTray = 1;
    constexpr int kFirstChanger = 4;
    constexpr int kLoads = 0x10;
    const Bytes removable = Feature(handle, 0x03);
    if (removable.empty()) {
        return false;
    }
    const int mechanism = removable[0] >> 5;
    return mechanism == kTray || mechanism == kFirstChanger || mechanism == kFirstChanger + 1
        || (removable[0] & kLoads) != 0;
}

} // namespace

drive::DriveFacts ReadDriveFacts(const QString& device)
{
    constexpr std::uint8_t kInquiry = 36;
    DeviceHandle handle(device, DeviceHandle::Sharing::Shared);
    drive::DriveFacts facts;
    const Bytes inquiry = handle.Ask({0x12, 0, 0, 0, kInquiry, 0}, kInquiry);
    facts.vendor = Field(inquiry, 8, 8);
    facts.product = Field(inquiry, 16, 16);
    facts.revision = Field(inquiry, 32, 4);
    facts.canLoadMedia = LoadsMedia(handle);
    facts.profiles = ProfilesOf(handle);
    if (facts.profiles.isEmpty()) {
        facts.profiles = ProfilesByModePage(handle);
    }
    qsizetype digits = 0;
    while (digits < device.size() && device[device.size() - 1 - digits].isDigit()) {
        ++digits;
    }
    facts.legacyNumber = device.right(digits).toInt();
    facts.paths = {device};
    return facts;
}

} // namespace velmora::drives
