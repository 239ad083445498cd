// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/RuntimeError.h"

#include <QString>
#include <QtGlobal>

#include <cstdint>
#include <optional>
#include <span>

namespace velmora::drives {

/// What the drive was doing: the same refusal means something else in an erase.
enum class Task : std::uint8_t { Look, Write, Erase };

/// Sense keys (SPC-4, 4.5.6).
namespace sense_key {
inline constexpr int kRecovered = 1; ///< the command was done
inline constexpr int kNotReady = 2;
inline constexpr int kMediumError = 3;
inline constexpr int kHardwareError = 4;
inline constexpr int kIllegalRequest = 5;
inline constexpr int kUnitAttention = 6; ///< something has happened, which is reported once
inline constexpr int kDataProtect = 7;
} // namespace sense_key

/// Why a drive refused a command: sense key, additional code and its qualifier.
struct Sense {
    int key = 0;
    int code = 0;
    int qualifier = 0;

    bool operator==(const Sense&) const = default;
};

/// The contents of a failed command's sense bytes, in fixed or descriptor format (SPC-4, 4.5).
/// Bytes that were cut off count as 0.
Sense SenseFrom(std::span<const std::uint8_t> bytes);

/// The published code that a task ends with when the drive says so; C0AA02FF for sense data without
/// a code of its own. Only during a write a defect is a write error.
qint32 CodeOf(const Sense& sense, Task task);
/// The error of a drive that refuses a command, as the user reads it.
runtime::RuntimeError RefusedQuestion(const Sense& sense);
/// "03/0C/09": key, code and qualifier in hex.
QString TextOf(const Sense& sense);
/// The sense data that a message of the library holds.
std::optional<Sense> SenseIn(const QString& message);

} // namespace velmora::drives
