// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/RuntimeError.h"

#include <QString>
#include <QtGlobal>

namespace velmora::drive {

/// A published error code as the signed number that the user sees.
constexpr qint32 Hresult(quint32 code) { return static_cast<qint32>(code); }

/// Codes that drives and the mastering interfaces raise. The program sees four of them under
/// classic numbers, see MapHresult.
namespace hresult {
inline constexpr qint32 kNotImplemented = Hresult(0x80004001);
inline constexpr qint32 kPointer = Hresult(0x80004003);
inline constexpr qint32 kFail = Hresult(0x80004005);
inline constexpr qint32 kStreamAccessDenied = Hresult(0x80030005);
inline constexpr qint32 kStreamInvalidPointer = Hresult(0x80030009);
inline constexpr qint32 kStreamWriteFault = Hresult(0x8003001D);
inline constexpr qint32 kStreamReadFault = Hresult(0x8003001E);
inline constexpr qint32 kStreamShareViolation = Hresult(0x80030020);
inline constexpr qint32 kStreamMediumFull = Hresult(0x80030070);
inline constexpr qint32 kFileNotFound = Hresult(0x80070002);
inline constexpr qint32 kAccessDenied = Hresult(0x80070005);
inline constexpr qint32 kOutOfMemory = Hresult(0x8007000E);
inline constexpr qint32 kEndOfFile = Hresult(0x80070026);
inline constexpr qint32 kDeviceGone = Hresult(0x80070037);
inline constexpr qint32 kInvalidArgument = Hresult(0x80070057);
inline constexpr qint32 kEraseInProgress = Hresult(0x80AA0900);
inline constexpr qint32 kOneRecorderOnly = Hresult(0x80AA0901);
inline constexpr qint32 kShortDiscInformation = Hresult(0x80AA0902);
inline constexpr qint32 kShortModePage2A = Hresult(0x80AA0903);
inline constexpr qint32 kNotErasable = Hresult(0x80AA0904);
inline constexpr qint32 kEraseRefused = Hresult(0x80AA0905);
inline constexpr qint32 kEraseTooLong = Hresult(0x80AA0906);
inline constexpr qint32 kEraseUnexpectedResponse = Hresult(0x80AA0907);
inline constexpr qint32 kSpinUpFailed = Hresult(0x80AA0908);
inline constexpr qint32 kCancelled = Hresult(0xC0AA0002);
inline constexpr qint32 kRecorderRequired = Hresult(0xC0AA0003);
inline constexpr qint32 kVerificationFailed = Hresult(0xC0AA0007);
inline constexpr qint32 kNoSuchModePage = Hresult(0xC0AA0201);
inline constexpr qint32 kNoMedia = Hresult(0xC0AA0202);
inline constexpr qint32 kMediaIncompatible = Hresult(0xC0AA0203);
inline constexpr qint32 kUpsideDown = Hresult(0xC0AA0204);
inline constexpr qint32 kBecomingReady = Hresult(0xC0AA0205);
inline constexpr qint32 kFormatInProgress = Hresult(0xC0AA0206);
inline constexpr qint32 kMediaBusy = Hresult(0xC0AA0207);
inline constexpr qint32 kInvalidModeParameters = Hresult(0xC0AA0208);
inline constexpr qint32 kWriteProtected = Hresult(0xC0AA0209);
inline constexpr qint32 kNoSuchFeature = Hresult(0xC0AA020A);
inline constexpr qint32 kFeatureNotCurrent = Hresult(0xC0AA020B);
inline constexpr qint32 kNoConfiguration = Hresult(0xC0AA020C);
inline constexpr qint32 kCommandTimeout = Hresult(0xC0AA020D);
inline constexpr qint32 kNoDvdStructure = Hresult(0xC0AA020E);
inline constexpr qint32 kMediaSpeedMismatch = Hresult(0xC0AA020F);
inline constexpr qint32 kRecorderLocked = Hresult(0xC0AA0210);
inline constexpr qint32 kRecorderClientNameNotValid = Hresult(0xC0AA0211);
inline constexpr qint32 kInvalidResponse = Hresult(0xC0AA02FF);
inline constexpr qint32 kLossOfStreaming = Hresult(0xC0AA0300);
inline constexpr qint32 kWriteError = Hresult(0xC0AA0301);
inline constexpr qint32 kWriteInProgress = Hresult(0xC0AA0400);
inline constexpr qint32 kWriteNotInProgress = Hresult(0xC0AA0401);
inline constexpr qint32 kInvalidMediaState = Hresult(0xC0AA0402);
inline constexpr qint32 kStreamNotSupported = Hresult(0xC0AA0403);
inline constexpr qint32 kStreamTooLarge = Hresult(0xC0AA0404);
inline constexpr qint32 kMediaNotBlank = Hresult(0xC0AA0405);
inline constexpr qint32 kMediaNotSupported = Hresult(0xC0AA0406);
inline constexpr qint32 kRecorderNotSupported = Hresult(0xC0AA0407);
inline constexpr qint32 kClientNameNotValid = Hresult(0xC0AA0408);
inline constexpr qint32 kEraseMediaNotSupported = Hresult(0xC0AA0909);
inline constexpr qint32 kEraseRecorderNotSupported = Hresult(0xC0AA090A);
inline constexpr qint32 kEraseClientNameNotValid = Hresult(0xC0AA090B);
inline constexpr qint32 kInvalidParam = Hresult(0xC0AAB101);
inline constexpr qint32 kReadOnly = Hresult(0xC0AAB102);
inline constexpr qint32 kNoFileSystem = Hresult(0xC0AAB103);
inline constexpr qint32 kInvalidVolumeName = Hresult(0xC0AAB104);
inline constexpr qint32 kNotADirectory = Hresult(0xC0AAB109);
inline constexpr qint32 kInvalidPath = Hresult(0xC0AAB110);
inline constexpr qint32 kDuplicateName = Hresult(0xC0AAB112);
inline constexpr qint32 kNoUniqueName = Hresult(0xC0AAB113);
inline constexpr qint32 kItemNotFound = Hresult(0xC0AAB118);
inline constexpr qint32 kDirectoryNotFound = Hresult(0xC0AAB11A);
inline constexpr qint32 kImageSizeLimit = Hresult(0xC0AAB120);
inline constexpr qint32 kStreamInconsistent = Hresult(0xC0AAB128);
inline constexpr qint32 kStreamUnreadable = Hresult(0xC0AAB129);
inline constexpr qint32 kStreamNotCreated = Hresult(0xC0AAB12A);
inline constexpr qint32 kDirectoryUnreadable = Hresult(0xC0AAB12B);
inline constexpr qint32 kTooManyDirectories = Hresult(0xC0AAB130);
inline constexpr qint32 kTooManyLevels = Hresult(0xC0AAB131);
inline constexpr qint32 kDataTooBig = Hresult(0xC0AAB132);
inline constexpr qint32 kInvalidWorkingDirectory = Hresult(0xC0AAB140);
inline constexpr qint32 kEmptyDisc = Hresult(0xC0AAB150);
inline constexpr qint32 kNoKnownFileSystem = Hresult(0xC0AAB151);
inline constexpr qint32 kImportSeekFailure = Hresult(0xC0AAB156);
inline constexpr qint32 kImportReadFailure = Hresult(0xC0AAB157);
inline constexpr qint32 kImportMediaNotAllowed = Hresult(0xC0AAB159);
inline constexpr qint32 kNoMultisession = Hresult(0xC0AAB15C);
inline constexpr qint32 kMultisessionNotSet = Hresult(0xC0AAB15D);
inline constexpr qint32 kBadMultisession = Hresult(0xC0AAB162);

// Success codes: returned, never raised.
inline constexpr qint32 kOk = 0;
inline constexpr qint32 kSpeedAdjusted = Hresult(0x00AA0004);
inline constexpr qint32 kRotationAdjusted = Hresult(0x00AA0005);
inline constexpr qint32 kBothAdjusted = Hresult(0x00AA0006);
} // namespace hresult

/// The number that a failed platform call gets: four codes become classic numbers, every other code
/// stays the signed 32-bit number that it is.
qint32 MapHresult(qint32 code);

/// The error of a published code, under the number by which the program sees it.
/// @param description  for the user, in place of the code's own if more is known; French
/// @param source  the drive's sense data as "key/code/qualifier" in hex
runtime::RuntimeError PublishedError(
    qint32 code, const QString& description = {}, const QString& source = {});

} // namespace velmora::drive
