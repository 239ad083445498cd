// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

// The published numbers of the failures, as a program sees them: signed and in decimal.
namespace velmora::test {

inline constexpr qint32 kPointer = -2147467261;
inline constexpr qint32 kAccessDenied = -2147287035;
inline constexpr qint32 kInvalidPointer = -2147287031;
inline constexpr qint32 kStreamReadFault = -2147287010;
inline constexpr qint32 kShareViolation = -2147287008;
inline constexpr qint32 kMediumFull = -2147286928;
inline constexpr qint32 kFileNotFound = -2147024894;
inline constexpr qint32 kEndOfFile = -2147024858;
inline constexpr qint32 kDeviceGone = -2147024841;
inline constexpr qint32 kEraseInProgress = -2136340224;
inline constexpr qint32 kEraseUnexpectedResponse = -2136340217;
inline constexpr qint32 kOneRecorderOnly = -2136340223;
inline constexpr qint32 kNotErasable = -2136340220;
inline constexpr qint32 kCancelled = -1062600702;
inline constexpr qint32 kRecorderRequired = -1062600701;
inline constexpr qint32 kVerificationFailed = -1062600697;
inline constexpr qint32 kNoMedia = -1062600190;
inline constexpr qint32 kNotReady = -1062600187;
inline constexpr qint32 kWriteProtected = -1062600183;
inline constexpr qint32 kLocked = -1062600176;
inline constexpr qint32 kWriteInProgress = -1062599680;
inline constexpr qint32 kNotInProgress = -1062599679;
inline constexpr qint32 kInvalidMediaState = -1062599678;
inline constexpr qint32 kStreamNotSupported = -1062599677;
inline constexpr qint32 kStreamTooLarge = -1062599676;
inline constexpr qint32 kMediaNotBlank = -1062599675;
inline constexpr qint32 kMediaNotSupported = -1062599674;
inline constexpr qint32 kRecorderNotSupported = -1062599673;
inline constexpr qint32 kClientNameNotValid = -1062599672;
inline constexpr qint32 kEraseMediaNotSupported = -1062598391;
inline constexpr qint32 kEraseRecorderNotSupported = -1062598390;
inline constexpr qint32 kEraseClientNameNotValid = -1062598389;
inline constexpr qint32 kInvalidParam = -1062555391;
inline constexpr qint32 kReadOnly = -1062555390;
inline constexpr qint32 kInvalidVolumeName = -1062555388;
inline constexpr qint32 kNotADirectory = -1062555383;
inline constexpr qint32 kInvalidPath = -1062555376;
inline constexpr qint32 kNameTaken = -1062555374;
inline constexpr qint32 kItemNotFound = -1062555368;
inline constexpr qint32 kDirectoryNotFound = -1062555366;
inline constexpr qint32 kImageSizeLimit = -1062555360;
inline constexpr qint32 kFileChanged = -1062555352;
inline constexpr qint32 kCreateFailure = -1062555350;
inline constexpr qint32 kDirectoryUnreadable = -1062555349;
inline constexpr qint32 kTooDeep = -1062555343;
inline constexpr qint32 kFileTooLarge = -1062555342;
inline constexpr qint32 kInvalidWorkingDirectory = -1062555328;
inline constexpr qint32 kEmptyDisc = -1062555312;
inline constexpr qint32 kNoFileSystem = -1062555311;
inline constexpr qint32 kSeekFailure = -1062555306;
inline constexpr qint32 kReadFailure = -1062555305;
inline constexpr qint32 kMediaNotAllowed = -1062555303;
inline constexpr qint32 kNoMultisession = -1062555300;
inline constexpr qint32 kNotSet = -1062555299;
inline constexpr qint32 kBadParameter = -1062555294;

} // namespace velmora::test
