// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/udf/UdfFormat.h"

#include "image/base/Crc.h"

#include <algorithm>
#include <cstring>

namespace velmora::image {

namespace {

constexpr std::int64_t kFirstTimestamp = -62135596800; // 0001-01-01 00:00:00
constexpr std::int64_t kLastTimestamp = 253402300799;  // 9999-12-31 23:59:59
constexpr std::uint8_t kUnix = 4;                      // operating system class (UDF 6.3)
constexpr std::uint8_t kLinux = 5;                     // operating system identifier
constexpr std::uint8_t kReadOnly = 0x03;               // domain flags: hard and soft write protect

EntityId Named(std::string_view identifier)
{
    EntityId id;
    id.identifier = Filled<23>(identifier, '\0');
    return id;
}

void PutRevision(EntityId& id, std::uint16_t revision)
{
    id.suffix[0] = static_cast<std::uint8_t>(revision & 0xFFU);
    id.suffix[1] = static_cast<std::uint8_t>(revision >> 8U);
}

} // namespace

void Seal(std::string& descriptor, TagId identifier, std::uint16_t version, std::uint32_t location)
{
    const std::string_view body = std::string_view(descriptor).substr(sizeof(Tag));
    Tag tag;
    tag.identifier = static_cast<std::uint16_t>(identifier);
    tag.version = version;
    tag.crc = Crc16(body);
    tag.crcLength = static_cast<std::uint16_t>(body.size());
    tag.location = location;
    unsigned sum = 0;
    for (const char byte : BytesOf(tag)) {
        sum += static_cast<unsigned char>(byte);
    }
    tag.checksum = static_cast<std::uint8_t>(sum & 0xFFU);
    std::memcpy(descriptor.data(), &tag, sizeof tag);
}

EntityId DomainId(std::uint16_t revision)
{
    EntityId id = Named("*OSTA UDF Compliant");
    PutRevision(id, revision);
    id.suffix[2] = kReadOnly;
    return id;
}

EntityId UdfId(std::string_view identifier, std::uint16_t revision)
{
    EntityId id = Named(identifier);
    PutRevision(id, revision);
    id.suffix[2] = kUnix;
    id.suffix[3] = kLinux;
    return id;
}

EntityId ImplementationId()
{
    EntityId id = Named("*Velmora");
    id.suffix[0] = kUnix;
    id.suffix[1] = kLinux;
    return id;
}

EntityId ContentsId(std::uint16_t revision)
{
    return Named(revision >= 0x0200 ? "+NSR03" : "+NSR02");
}

UdfTime ToUdfTime(TimeStamp time)
{
    const Calendar calendar = ToCalendar(std::clamp(time.seconds, kFirstTimestamp, kLastTimestamp));
    UdfTime recorded;
    recorded.year = static_cast<std::uint16_t>(calendar.year);
    recorded.month = calendar.month;
    recorded.day = calendar.day;
    recorded.hour = calendar.hour;
    recorded.minute = calendar.minute;
    recorded.second = calendar.second;
    recorded.centiseconds = static_cast<std::uint8_t>(time.microseconds / 10000);
    recorded.hundredsOfMicroseconds = static_cast<std::uint8_t>(time.microseconds / 100 % 100);
    recorded.microseconds = static_cast<std::uint8_t>(time.microseconds % 100);
    return recorded;
}

} // namespace velmora::image
