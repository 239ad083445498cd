// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <compare>
#include <cstdint>

namespace velmora::image {

/// A moment, in UTC.
struct TimeStamp {
    std::int64_t seconds = 0;       ///< since 1970-01-01
    std::uint32_t microseconds = 0; ///< 0..999999

    auto operator<=>(const TimeStamp&) const = default;
};

/// A moment in the Gregorian calendar, UTC.
struct Calendar {
    int year = 1970;
    std::uint8_t month = 1; ///< 1..12
    std::uint8_t day = 1;   ///< 1..31
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
};

/// Turns seconds since 1970-01-01 into a date, without the C library, which looks up time zones: it
/// runs at least once for every file of a disc.
constexpr Calendar ToCalendar(std::int64_t seconds)
{
    std::int64_t days = seconds / 86400;
    std::int64_t rest = seconds % 86400;
    if (rest < 0) {
        rest += 86400;
        --days;
    }
    // Years run from March, so that a leap day is the last of its year; eras are 400 years of
    // 146097 days.
    days += 719468;
    const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const std::int64_t dayOfEra = days - era * 146097;
    const std::int64_t yearOfEra
        = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t marchMonth = (5 * dayOfYear + 2) / 153;
    const std::int64_t month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
    const auto byte = [](std::int64_t value) { return static_cast<std::uint8_t>(value); };
    return {static_cast<int>(yearOfEra + era * 400 + (month <= 2 ? 1 : 0)),
        byte(month),
        byte(dayOfYear - (153 * marchMonth + 2) / 5 + 1),
        byte(rest / 3600),
        byte(rest / 60 % 60),
        byte(rest % 60)};
}

static_assert(ToCalendar(951782400).month == 2 && ToCalendar(951782400).day == 29); // 2000-02-29

} // namespace velmora::image
