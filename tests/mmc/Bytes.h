// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace velmora::mmc {

/// Numbers in commands and replies have their high byte first.
inline void Put16(std::span<std::uint8_t> bytes, std::size_t at, std::int64_t value)
{
    bytes[at] = static_cast<std::uint8_t>(value >> 8);
    bytes[at + 1] = static_cast<std::uint8_t>(value);
}

inline void Put32(std::span<std::uint8_t> bytes, std::size_t at, std::int64_t value)
{
    Put16(bytes, at, value >> 16);
    Put16(bytes, at + 2, value);
}

inline std::uint32_t Get16(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return static_cast<std::uint32_t>(bytes[at]) << 8 | bytes[at + 1];
}

inline std::uint32_t Get32(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return Get16(bytes, at) << 16 | Get16(bytes, at + 2);
}

/// A block address; negative before a CD's first sector.
inline std::int64_t GetAddress(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return static_cast<std::int32_t>(Get32(bytes, at));
}

} // namespace velmora::mmc
