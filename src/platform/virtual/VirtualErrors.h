// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/ImapiErrors.h"
#include "runtime/RuntimeError.h"

#include <QString>
#include <QtGlobal>

namespace velmora::virtualdrive {

/// Published codes that a drive raises.
namespace code {
inline constexpr qint32 kFail = imapi::Hresult(0x80004005);
inline constexpr qint32 kInvalidArgument = imapi::Hresult(0x80070057);
inline constexpr qint32 kAccessDenied = imapi::Hresult(0x80070005);
inline constexpr qint32 kGone = imapi::Hresult(0x80070037);
inline constexpr qint32 kCancelled = imapi::Hresult(0xC0AA0002);
inline constexpr qint32 kNoMedia = imapi::Hresult(0xC0AA0202);
inline constexpr qint32 kUpsideDown = imapi::Hresult(0xC0AA0204);
inline constexpr qint32 kBecomingReady = imapi::Hresult(0xC0AA0205);
inline constexpr qint32 kMediaBusy = imapi::Hresult(0xC0AA0207);
inline constexpr qint32 kWriteProtected = imapi::Hresult(0xC0AA0209);
inline constexpr qint32 kLocked = imapi::Hresult(0xC0AA0210);
inline constexpr qint32 kInvalidResponse = imapi::Hresult(0xC0AA02FF);
inline constexpr qint32 kLossOfStreaming = imapi::Hresult(0xC0AA0300);
inline constexpr qint32 kWriteError = imapi::Hresult(0xC0AA0301);
inline constexpr qint32 kInvalidMediaState = imapi::Hresult(0xC0AA0402);
inline constexpr qint32 kStreamTooLarge = imapi::Hresult(0xC0AA0404);
inline constexpr qint32 kMediaNotSupported = imapi::Hresult(0xC0AA0406);
inline constexpr qint32 kNotErasable = imapi::Hresult(0x80AA0904);
inline constexpr qint32 kEraseFailed = imapi::Hresult(0x80AA0905);
inline constexpr qint32 kEraseNotSupported = imapi::Hresult(0xC0AA0909);
inline constexpr qint32 kReadFailure = imapi::Hresult(0xC0AAB157);
} // namespace code

/// The error of a published code, under the number by which the program sees it.
/// @param description  instead of the code's own, where more is known
runtime::RuntimeError DriveError(qint32 publishedCode, const QString& description = {});

/// The recorder's folder may not be read or written.
runtime::RuntimeError FolderRefused();

} // namespace velmora::virtualdrive
