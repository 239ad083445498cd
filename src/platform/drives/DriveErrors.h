// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/RuntimeError.h"

#include <QString>
#include <QtGlobal>

#include <cstdint>
#include <optional>

namespace velmora::drives {

/// The published codes that a real drive's failures end as.
namespace code {
inline constexpr quint32 kFail = 0x80004005;
inline constexpr quint32 kAccessDenied = 0x80070005;
inline constexpr quint32 kDeviceGone = 0x80070037;
inline constexpr quint32 kCancelled = 0xC0AA0002;
inline constexpr quint32 kNoSuchModePage = 0xC0AA0201;
inline constexpr quint32 kNoMedia = 0xC0AA0202;
inline constexpr quint32 kMediaIncompatible = 0xC0AA0203;
inline constexpr quint32 kBecomingReady = 0xC0AA0205;
inline constexpr quint32 kFormatInProgress = 0xC0AA0206;
inline constexpr quint32 kDriveBusy = 0xC0AA0207;
inline constexpr quint32 kInvalidModeParameters = 0xC0AA0208;
inline constexpr quint32 kWriteProtected = 0xC0AA0209;
inline constexpr quint32 kTimeout = 0xC0AA020D;
inline constexpr quint32 kLocked = 0xC0AA0210;
inline constexpr quint32 kInvalidResponse = 0xC0AA02FF;
inline constexpr quint32 kLossOfStreaming = 0xC0AA0300;
inline constexpr quint32 kWriteError = 0xC0AA0301;
inline constexpr quint32 kInvalidMediaState = 0xC0AA0402;
inline constexpr quint32 kStreamNotSupported = 0xC0AA0403;
inline constexpr quint32 kStreamTooLarge = 0xC0AA0404;
inline constexpr quint32 kMediaNotSupported = 0xC0AA0406;
inline constexpr quint32 kUnreadable = 0xC0AAB157;
inline constexpr quint32 kNotErasable = 0x80AA0904;
inline constexpr quint32 kEraseRefused = 0x80AA0905;
inline constexpr quint32 kEraseTooLong = 0x80AA0906;
inline constexpr quint32 kEraseFailed = 0x80AA0907;
} // namespace code

/// The error of a published code, with a French description that says what to do.
runtime::RuntimeError DriveError(quint32 code);
/// The same with a description for the case at hand.
runtime::RuntimeError DriveError(quint32 code, const QString& description);

/// Why a drive refused a command: sense key, additional code and its qualifier.
struct Sense {
    int key = 0;
    int code = 0;
    int qualifier = 0;

    bool operator==(const Sense&) const = default;
};

/// What a task ends as when the drive says so; none for sense data without a code of its own.
quint32 CodeOf(const Sense& sense);
/// The sense data that a message of the library holds.
std::optional<Sense> SenseIn(const QString& message);

} // namespace velmora::drives
