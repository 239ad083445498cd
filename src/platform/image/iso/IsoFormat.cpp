// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/IsoFormat.h"

#include <algorithm>
#include <cstdio>

namespace velmora::image {

namespace {

constexpr std::int64_t kFirstRecordTime = -2208988800; // 1900-01-01 00:00:00
constexpr std::int64_t kLastRecordTime = 5869583999;   // 2155-12-31 23:59:59

} // namespace

RecordTime ToRecordTime(std::int64_t secondsSince1970)
{
    const Calendar time
        = ToCalendar(std::clamp(secondsSince1970, kFirstRecordTime, kLastRecordTime));
    const auto yearsSince1900 = static_cast<std::uint8_t>(time.year - 1900);
    return {yearsSince1900, time.month, time.day, time.hour, time.minute, time.second, 0};
}

VolumeTime ToVolumeTime(TimeStamp time)
{
    const Calendar calendar
        = ToCalendar(std::clamp(time.seconds, kFirstRecordTime, kLastRecordTime));
    std::array<char, 96> text {};
    std::snprintf(text.data(),
        text.size(),
        "%04d%02d%02d%02d%02d%02d%02u",
        calendar.year,
        calendar.month,
        calendar.day,
        calendar.hour,
        calendar.minute,
        calendar.second,
        time.microseconds / 10000);
    return {Filled<16>(text.data(), '0'), 0};
}

} // namespace velmora::image
