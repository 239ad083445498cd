// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/RecorderErrorText.h"

#include "drive/PublishedCodes.h"
#include "runtime/Conversions.h"

#include <algorithm>
#include <array>

namespace velmora::recorder {

using namespace Qt::StringLiterals;

namespace {

namespace hresult = drive::hresult;
using drive::Hresult;

struct ErrorRow {
    qint32 code;
    QStringView message;
};

// In the order of the search. Codes for what the program doesn't use, raw images and audio tracks,
// have no names. C0AA0006 and 00AA0A08 are how the program has these two codes.
constexpr std::array kRows {
    ErrorRow {hresult::kVerificationFailed,
        u"La vérification du disque a échoué. Le disque peut contenir des erreurs et être "
        u"inutilisable."},
    ErrorRow {hresult::kCancelled, u"La requête a été annulée."},
    ErrorRow {
        hresult::kRecorderRequired, u"La requête nécessite qu'un graveur ait été sélectionné."},
    ErrorRow {Hresult(0x00AA0302), u"aucune opération d'écriture n'est en cours."},
    ErrorRow {hresult::kSpeedAdjusted,
        u"La vitesse d'écriture choisie n'est pas supporté par le graveur. La vitesse a été "
        u"ajustée."},
    ErrorRow {hresult::kRotationAdjusted,
        u"Le type de rotation choisi n'est pas disponible. Il a été ajusté au possibilités du "
        u"graveur."},
    ErrorRow {Hresult(0xC0AA0006),
        u"La vitesse d'écriture choisie et le type de rotation requis ne sont pas supportés par le "
        u"graveur et doivent être ajustés."},
    ErrorRow {Hresult(0x00AA0200),
        u"The device accepted the command, but returned sense data, indicating an error."},
    ErrorRow {Hresult(0x80AA0A00),
        u"The image has become read-only due to a call to IRawCDImageCreator.CreateResultImage."},
    ErrorRow {Hresult(0x80AA0A01),
        u"No more tracks may be added. CD media is restricted to a range of 1-99 tracks."},
    ErrorRow {
        Hresult(0x80AA0A03), u"Tracks must be added to the image before using this function."},
    ErrorRow {Hresult(0x80AA0A02), u"The requested sector type is not supported."},
    ErrorRow {Hresult(0x80AA0A04),
        u"Tracks may not be added to the image prior to the use of this function."},
    ErrorRow {Hresult(0x80AA0A05),
        u"Adding this track would exceed the limitations of the start of the leadout."},
    ErrorRow {Hresult(0x80AA0A06), u"Adding this track would exceed the 99 index limit."},
    ErrorRow {
        Hresult(0x80AA0A07), u"The specified LBA offset is not in the list of track indexes."},
    ErrorRow {
        Hresult(0x00AA0A08), u"The specified LBA offset is already in the list of track indexes."},
    ErrorRow {Hresult(0x80AA0A09), u"Index 1 (LBA offset zero) cannot be cleared."},
    ErrorRow {Hresult(0x80AA0A0A), u"Each index must have a minimum size of ten sectors."},
    ErrorRow {hresult::kNoSuchModePage,
        u"The device reported that the requested mode page (and type) is not present."},
    ErrorRow {hresult::kNoMedia, u"There is no media in the device."},
    ErrorRow {
        hresult::kMediaIncompatible, u"The media is not compatible or of unknown physical format."},
    ErrorRow {hresult::kUpsideDown, u"The media is inserted upside down."},
    ErrorRow {hresult::kBecomingReady,
        u"The drive reported that it is in the process of becoming ready. Please try the request "
        u"again later."},
    ErrorRow {hresult::kFormatInProgress,
        u"The media is currently being formatted. Please wait for the format to complete before "
        u"attempting to use the media."},
    ErrorRow {hresult::kMediaBusy,
        u"The drive reported that it is performing a long-running operation, such as finishing a "
        u"write. The drive may be unusable for a long period of time."},
    ErrorRow {hresult::kInvalidModeParameters,
        u"The drive reported that the combination of parameters provided in the mode page for a "
        u"MODE SELECT command were not supported."},
    ErrorRow {hresult::kWriteProtected, u"The drive reported that the media is write protected."},
    ErrorRow {
        hresult::kNoSuchFeature, u"The feature page requested is not supported by the device."},
    ErrorRow {hresult::kFeatureNotCurrent,
        u"The feature page requested is supported, but is not marked as current."},
    ErrorRow {
        hresult::kNoConfiguration, u"The drive does not support the GET CONFIGURATION command."},
    ErrorRow {hresult::kCommandTimeout,
        u"The device failed to accept the command within the timeout period. This may be caused by "
        u"the device having entered an inconsistent state, or the timeout value for the command "
        u"may need to be increased."},
    ErrorRow {hresult::kNoDvdStructure,
        u"The device failed to accept the command within the timeout period. This may be caused by "
        u"the device having entered an inconsistent state, or the timeout value for the command "
        u"may need to be increased."},
    ErrorRow {hresult::kMediaSpeedMismatch,
        u"The media's speed is incompatible with the device. This may be caused by using higher or "
        u"lower speed media than the range of speeds supported by the device."},
    ErrorRow {hresult::kRecorderLocked,
        u"The device associated with this recorder during the last operation has been exclusively "
        u"locked, causing this operation to failed."},
    ErrorRow {hresult::kRecorderClientNameNotValid, u"The client name is not valid."},
    ErrorRow {hresult::kInvalidResponse,
        u"The device reported unexpected or invalid data for a command."},
    ErrorRow {hresult::kLossOfStreaming,
        u"The write failed because the drive did not receive data quickly enough to continue "
        u"writing. Moving the source data to the local computer, reducing the write speed, or "
        u"enabling a 'buffer underrun free' setting may resolve this issue."},
    ErrorRow {hresult::kWriteError,
        u"The write failed because the drive returned error information that could not be "
        u"recovered from."},
    ErrorRow {hresult::kWriteInProgress, u"There is currently a write operation in progress."},
    ErrorRow {hresult::kWriteNotInProgress, u"There is no write operation currently in progress."},
    ErrorRow {hresult::kInvalidMediaState,
        u"The requested operation is only valid with supported media."},
    ErrorRow {hresult::kStreamNotSupported, u"The provided stream to write is not supported."},
    ErrorRow {hresult::kStreamTooLarge,
        u"The provided stream to write is too large for the currently inserted media."},
    ErrorRow {hresult::kMediaNotBlank,
        u"Overwriting non-blank media is not allowed without the ForceOverwrite property set to "
        u"VARIANT_TRUE."},
    ErrorRow {hresult::kMediaNotSupported, u"The current media type is unsupported."},
    ErrorRow {hresult::kRecorderNotSupported,
        u"This device does not support the operations required by this disc format."},
    ErrorRow {hresult::kClientNameNotValid, u"The client name is not valid."},
    ErrorRow {Hresult(0xC0AA0500), u"There is currently a write operation in progress."},
    ErrorRow {Hresult(0xC0AA0501), u"There is no write operation currently in progress."},
    ErrorRow {Hresult(0xC0AA0502),
        u"The requested operation is only valid when media has been 'prepared'."},
    ErrorRow {Hresult(0xC0AA0503),
        u"The requested operation is not valid when media has been 'prepared' but not released."},
    ErrorRow {
        Hresult(0xC0AA0504), u"The property cannot be changed once the media has been written to."},
    ErrorRow {
        Hresult(0xC0AA0505), u"The table of contents cannot be retrieved from an empty disc."},
    ErrorRow {Hresult(0xC0AA0506), u"Only blank CD-R/RW media is supported."},
    ErrorRow {Hresult(0xC0AA0507), u"Only blank CD-R/RW media is supported."},
    ErrorRow {Hresult(0xC0AA0508), u"CD-R and CD-RW media support a maximum of 99 audio tracks."},
    ErrorRow {Hresult(0xC0AA0509),
        u"There is not enough space left on the media to add the provided audio track."},
    ErrorRow {
        Hresult(0xC0AA050A), u"You cannot prepare the media until you choose a recorder to use."},
    ErrorRow {Hresult(0xC0AA050B), u"The ISRC provided is not valid."},
    ErrorRow {Hresult(0xC0AA050C), u"The Media Catalog Number provided is not valid."},
    ErrorRow {Hresult(0xC0AA050D), u"The provided audio stream is not valid."},
    ErrorRow {Hresult(0xC0AA050E),
        u"This device does not support the operations required by this disc format."},
    ErrorRow {Hresult(0xC0AA050F), u"The client name is not valid."},
    ErrorRow {Hresult(0xC0AA0600), u"There is currently a write operation in progress."},
    ErrorRow {Hresult(0xC0AA0601), u"There is no write operation currently in progress."},
    ErrorRow {Hresult(0xC0AA0602),
        u"The requested operation is only valid when media has been 'prepared'."},
    ErrorRow {Hresult(0xC0AA0603),
        u"The requested operation is not valid when media has been 'prepared' but not released."},
    ErrorRow {Hresult(0xC0AA0604), u"The client name is not valid."},
    ErrorRow {Hresult(0xC0AA0606), u"Only blank CD-R/RW media is supported."},
    ErrorRow {Hresult(0xC0AA0607), u"Only blank CD-R/RW media is supported."},
    ErrorRow {Hresult(0xC0AA0609),
        u"There is not enough space on the media to add the provided session."},
    ErrorRow {
        Hresult(0xC0AA060A), u"You cannot prepare the media until you choose a recorder to use."},
    ErrorRow {Hresult(0xC0AA060D), u"The provided audio stream is not valid."},
    ErrorRow {Hresult(0xC0AA060E),
        u"The requested data block type is not supported by the current device."},
    ErrorRow {Hresult(0xC0AA060F),
        u"The stream does not contain a sufficient number of sectors in the leadin for the current "
        u"media."},
    ErrorRow {Hresult(0xC0AA0610),
        u"This device does not support the operations required by this disc format."},
    ErrorRow {hresult::kEraseInProgress,
        u"The format is currently using the disc recorder for an erase operation. Please wait for "
        u"the erase to complete before attempting to set or clear the current disc recorder."},
    ErrorRow {hresult::kOneRecorderOnly,
        u"The erase format only supports one recorder. You must clear the current recorder before "
        u"setting a new one."},
    ErrorRow {hresult::kShortDiscInformation,
        u"The drive did not report sufficient data for a READ DISC INFORMATION command. The drive "
        u"may not be supported, or the media may not be correct."},
    ErrorRow {hresult::kShortModePage2A,
        u"The drive did not report sufficient data for a MODE SENSE (page 0x2A) command. The drive "
        u"may not be supported, or the media may not be correct."},
    ErrorRow {hresult::kNotErasable, u"The drive reported that the media is not erasable."},
    ErrorRow {hresult::kEraseRefused, u"The drive failed the erase command."},
    ErrorRow {hresult::kEraseTooLong,
        u"The drive did not complete the erase in one hour.The drive may require a power cycle, "
        u"media removal, or other manual intervention to resume proper operation."},
    ErrorRow {hresult::kEraseUnexpectedResponse,
        u"The drive returned an unexpected error during the erase.The media may be unusable, the "
        u"erase may be complete, or the drive may still be in the process of erasing the disc."},
    ErrorRow {hresult::kSpinUpFailed,
        u"The drive returned an error for a START UNIT (spinup) command. Manual intervention may "
        u"be required."},
    ErrorRow {hresult::kEraseMediaNotSupported, u"The current media type is unsupported."},
    ErrorRow {hresult::kEraseRecorderNotSupported,
        u"This device does not support the operations required by this disc format."},
    ErrorRow {hresult::kEraseClientNameNotValid, u"The client name is not valid."},
};

} // namespace

QString RecorderErrorText(double& number)
{
    if (number < 0) {
        number = -number;
    }
    const auto* found = std::ranges::find(kRows, number, [](const ErrorRow& row) {
        return static_cast<double>(static_cast<quint32>(row.code)); // never below zero either
    });
    if (found != kRows.end()) {
        return found->message.toString();
    }
    return u"Une erreur s'est produite: erreur "_s + runtime::Str(number);
}

} // namespace velmora::recorder
