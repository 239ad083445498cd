// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/PublishedCodes.h"
#include "runtime/RuntimeError.h"

#include <QString>
#include <QtGlobal>

namespace velmora::virtualdrive {

/// Published codes that a drive raises.
namespace code {
inline constexpr qint32 kFail = drive::Hresult(0x80004005);
inline constexpr qint32 kInvalidArgument = drive::Hresult(0x80070057);
inline constexpr qint32 kAccessDenied = drive::Hresult(0x80070005);
inline constexpr qint32 kGone = drive::Hresult(0x80070037);
inline constexpr qint32 kCancelled = drive::Hresult(0xC0AA0002);
inline constexpr qint32 kNoMedia = drive::Hresult(0xC0AA0202);
inline constexpr qint32 kUpsideDown = drive::Hresult(0xC0AA0204);
inline constexpr qint32 kBecomingReady = drive::Hresult(0xC0AA0205);
inline constexpr qint32 kMediaBusy = drive::Hresult(0xC0AA0207);
inline constexpr qint32 kWriteProtected = drive::Hresult(0xC0AA0209);
inline constexpr qint32 kLocked = drive::Hresult(0xC0AA0210);
inline constexpr qint32 kInvalidResponse = drive::Hresult(0xC0AA02FF);
inline constexpr qint32 kLossOfStreaming = drive::Hresult(0xC0AA0300);
inline constexpr qint32 kWriteError = drive::Hresult(0xC0AA0301);
inline constexpr qint32 kInvalidMediaState = drive::Hresult(0xC0AA0402);
inline constexpr qint32 kStreamTooLarge = drive::Hresult(0xC0AA0404);
inline constexpr qint32 kMediaNotSupported = drive::Hresult(0xC0AA0406);
inline constexpr qint32 kNotErasable = drive::Hresult(0x80AA0904);
inline constexpr qint32 kEraseFailed = drive::Hresult(0x80AA0905);
inline constexpr qint32 kEraseNotSupported = drive::Hresult(0xC0AA0909);
inline constexpr qint32 kReadFailure = drive::Hresult(0xC0AAB157);
} // namespace code

/// The error of a published code, under the number by which the program sees it.
/// @param description  instead of the code's own, where more is known
runtime::RuntimeError DriveError(qint32 publishedCode, const QString& description = {});

/// The recorder's folder may not be read or written.
runtime::RuntimeError FolderRefused();

} // namespace velmora::virtualdrive
