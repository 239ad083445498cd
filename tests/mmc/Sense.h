// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>

namespace velmora::mmc {

/// Why a command failed: sense key, additional code and its qualifier (MMC, annex F).
struct Sense {
    std::uint8_t key = 0;
    std::uint8_t code = 0;
    std::uint8_t qualifier = 0;

    bool operator==(const Sense&) const = default;
};

/// The format of a drive's sense data (SPC-4, 4.5).
enum class SenseForm : std::uint8_t {
    Fixed,      ///< 70h, 18 bytes: as optical drives do
    Short,      ///< 70h, 8 bytes: only the key
    Descriptor, ///< 72h
    Deferred,   ///< 73h: as 72h, of a command before
};

/// The result of a command that fails.
using Refusal = std::optional<Sense>;

inline constexpr Sense kNoDisc {2, 0x3A, 0x01};
inline constexpr Sense kTrayOpen {2, 0x3A, 0x02};
inline constexpr Sense kBecomingReady {2, 0x04, 0x01};
inline constexpr Sense kFormatting {2, 0x04, 0x04};
inline constexpr Sense kOperationInProgress {2, 0x04, 0x07};
inline constexpr Sense kLongWriteInProgress {2, 0x04, 0x08};
inline constexpr Sense kUnreadable {3, 0x11, 0x00};
inline constexpr Sense kFormatCorrupted {3, 0x31, 0x00};
inline constexpr Sense kTimeoutOnLogicalUnit {4, 0x3E, 0x02};
inline constexpr Sense kUnknownCommand {5, 0x20, 0x00};
inline constexpr Sense kAddressOutOfRange {5, 0x21, 0x00};
inline constexpr Sense kInvalidWriteAddress {5, 0x21, 0x02};
inline constexpr Sense kInvalidField {5, 0x24, 0x00};
inline constexpr Sense kInvalidParameter {5, 0x26, 0x00};
inline constexpr Sense kSequenceError {5, 0x2C, 0x00};
inline constexpr Sense kCannotBlank {5, 0x30, 0x02};
inline constexpr Sense kCannotWrite {5, 0x30, 0x05};
inline constexpr Sense kRemovalPrevented {5, 0x53, 0x02};
inline constexpr Sense kEndOfArea {5, 0x63, 0x00};
inline constexpr Sense kIllegalMode {5, 0x64, 0x00};
inline constexpr Sense kDiscChanged {6, 0x28, 0x00};
inline constexpr Sense kWriteProtected {7, 0x27, 0x00};

} // namespace velmora::mmc
