// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>

namespace velmora::image {

/// An unsigned number kept low byte first (ECMA-119 7.2.1, 7.3.1; ECMA-167 1/7.1).
template <class T> struct Little {
    std::array<std::uint8_t, sizeof(T)> bytes {};

    constexpr Little() = default;
    constexpr Little(T value) // NOLINT(google-explicit-constructor): a field takes its number
    {
        for (std::size_t i = 0; i < sizeof(T); ++i) {
            bytes[i] = static_cast<std::uint8_t>(static_cast<std::uint64_t>(value) >> (8 * i));
        }
    }
    constexpr T Value() const
    {
        std::uint64_t value = 0;
        for (std::size_t i = sizeof(T); i-- > 0;) {
            value = value << 8U | bytes[i];
        }
        return static_cast<T>(value);
    }
};

/// An unsigned number kept high byte first (ECMA-119 7.2.2, 7.3.2).
template <class T> struct Big {
    std::array<std::uint8_t, sizeof(T)> bytes {};

    constexpr Big() = default;
    constexpr Big(T value) // NOLINT(google-explicit-constructor): a field takes its number
    {
        for (std::size_t i = 0; i < sizeof(T); ++i) {
            bytes[sizeof(T) - 1 - i]
                = static_cast<std::uint8_t>(static_cast<std::uint64_t>(value) >> (8 * i));
        }
    }
};

/// A number kept twice, low byte first and then high byte first (ECMA-119 7.2.3, 7.3.3).
template <class T> struct Both {
    Little<T> little {};
    Big<T> big {};

    constexpr Both() = default;
    constexpr Both(T value) // NOLINT(google-explicit-constructor): a field takes its number
        : little(value)
        , big(value)
    {
    }
};

using Little16 = Little<std::uint16_t>;
using Little32 = Little<std::uint32_t>;
using Little64 = Little<std::uint64_t>;
using Big16 = Big<std::uint16_t>;
using Big32 = Big<std::uint32_t>;
using Both16 = Both<std::uint16_t>;
using Both32 = Both<std::uint32_t>;

static_assert(sizeof(Little64) == 8 && alignof(Little64) == 1);
static_assert(sizeof(Both32) == 8 && alignof(Both32) == 1);

/// The bytes of a record of the disc.
template <class Record> std::string_view BytesOf(const Record& record)
{
    static_assert(alignof(Record) == 1 && std::is_trivially_copyable_v<Record>);
    return {reinterpret_cast<const char*>(&record), sizeof(Record)}; // NOLINT(*-reinterpret-cast)
}

/// Characters of a field, padded after the text.
template <std::size_t N>
constexpr std::array<char, N> Filled(std::string_view text, char filler = ' ')
{
    std::array<char, N> field {};
    for (std::size_t i = 0; i < N; ++i) {
        field[i] = i < text.size() ? text[i] : filler;
    }
    return field;
}

} // namespace velmora::image
