// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/RecorderErrorText.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>

namespace velmora::recorder {

using namespace Qt::StringLiterals;

namespace {

struct ErrorRow {
    quint32 code;
    QStringView message;
};

// In the order of the search. C0AA0006 and 00AA0A08 are how the program keeps these two codes.
constexpr std::array kRows {
    ErrorRow {0xC0AA0007,
        u"La vérification du disque a échoué. Le disque peut contenir des erreurs et être "
        u"inutilisable."},
    ErrorRow {0xC0AA0002, u"La requête a été annulée."},
    ErrorRow {0xC0AA0003, u"La requête nécessite qu'un graveur ait été sélectionné."},
    ErrorRow {0x00AA0302, u"aucune opération d'écriture n'est en cours."},
    ErrorRow {0x00AA0004,
        u"La vitesse d'écriture choisie n'est pas supporté par le graveur. La vitesse a été "
        u"ajustée."},
    ErrorRow {0x00AA0005,
        u"Le type de rotation choisi n'est pas disponible. Il a été ajusté au possibilités du "
        u"graveur."},
    ErrorRow {0xC0AA0006,
        u"La vitesse d'écriture choisie et le type de rotation requis ne sont pas supportés par le "
        u"graveur et doivent être ajustés."},
    ErrorRow {0x00AA0200,
        u"The device accepted the command, but returned sense data, indicating an error."},
    ErrorRow {0x80AA0A00,
        u"The image has become read-only due to a call to IRawCDImageCreator.CreateResultImage."},
    ErrorRow {0x80AA0A01,
        u"No more tracks may be added. CD media is restricted to a range of 1-99 tracks."},
    ErrorRow {0x80AA0A03, u"Tracks must be added to the image before using this function."},
    ErrorRow {0x80AA0A02, u"The requested sector type is not supported."},
    ErrorRow {
        0x80AA0A04, u"Tracks may not be added to the image prior to the use of this function."},
    ErrorRow {
        0x80AA0A05, u"Adding this track would exceed the limitations of the start of the leadout."},
    ErrorRow {0x80AA0A06, u"Adding this track would exceed the 99 index limit."},
    ErrorRow {0x80AA0A07, u"The specified LBA offset is not in the list of track indexes."},
    ErrorRow {0x00AA0A08, u"The specified LBA offset is already in the list of track indexes."},
    ErrorRow {0x80AA0A09, u"Index 1 (LBA offset zero) cannot be cleared."},
    ErrorRow {0x80AA0A0A, u"Each index must have a minimum size of ten sectors."},
    ErrorRow {
        0xC0AA0201, u"The device reported that the requested mode page (and type) is not present."},
    ErrorRow {0xC0AA0202, u"There is no media in the device."},
    ErrorRow {0xC0AA0203, u"The media is not compatible or of unknown physical format."},
    ErrorRow {0xC0AA0204, u"The media is inserted upside down."},
    ErrorRow {0xC0AA0205,
        u"The drive reported that it is in the process of becoming ready. Please try the request "
        u"again later."},
    ErrorRow {0xC0AA0206,
        u"The media is currently being formatted. Please wait for the format to complete before "
        u"attempting to use the media."},
    ErrorRow {0xC0AA0207,
        u"The drive reported that it is performing a long-running operation, such as finishing a "
        u"write. The drive may be unusable for a long period of time."},
    ErrorRow {0xC0AA0208,
        u"The drive reported that the combination of parameters provided in the mode page for a "
        u"MODE SELECT command were not supported."},
    ErrorRow {0xC0AA0209, u"The drive reported that the media is write protected."},
    ErrorRow {0xC0AA020A, u"The feature page requested is not supported by the device."},
    ErrorRow {
        0xC0AA020B, u"The feature page requested is supported, but is not marked as current."},
    ErrorRow {0xC0AA020C, u"The drive does not support the GET CONFIGURATION command."},
    ErrorRow {0xC0AA020D,
        u"The device failed to accept the command within the timeout period. This may be caused by "
        u"the device having entered an inconsistent state, or the timeout value for the command "
        u"may need to be increased."},
    ErrorRow {0xC0AA020E,
        u"The device failed to accept the command within the timeout period. This may be caused by "
        u"the device having entered an inconsistent state, or the timeout value for the command "
        u"may need to be increased."},
    ErrorRow {0xC0AA020F,
        u"The media's speed is incompatible with the device. This may be caused by using higher or "
        u"lower speed media than the range of speeds supported by the device."},
    ErrorRow {0xC0AA0210,
        u"The device associated with this recorder during the last operation has been exclusively "
        u"locked, causing this operation to failed."},
    ErrorRow {0xC0AA0211, u"The client name is not valid."},
    ErrorRow {0xC0AA02FF, u"The device reported unexpected or invalid data for a command."},
    ErrorRow {0xC0AA0300,
        u"The write failed because the drive did not receive data quickly enough to continue "
        u"writing. Moving the source data to the local computer, reducing the write speed, or "
        u"enabling a 'buffer underrun free' setting may resolve this issue."},
    ErrorRow {0xC0AA0301,
        u"The write failed because the drive returned error information that could not be "
        u"recovered from."},
    ErrorRow {0xC0AA0400, u"There is currently a write operation in progress."},
    ErrorRow {0xC0AA0401, u"There is no write operation currently in progress."},
    ErrorRow {0xC0AA0402, u"The requested operation is only valid with supported media."},
    ErrorRow {0xC0AA0403, u"The provided stream to write is not supported."},
    ErrorRow {
        0xC0AA0404, u"The provided stream to write is too large for the currently inserted media."},
    ErrorRow {0xC0AA0405,
        u"Overwriting non-blank media is not allowed without the ForceOverwrite property set to "
        u"VARIANT_TRUE."},
    ErrorRow {0xC0AA0406, u"The current media type is unsupported."},
    ErrorRow {
        0xC0AA0407, u"This device does not support the operations required by this disc format."},
    ErrorRow {0xC0AA0408, u"The client name is not valid."},
    ErrorRow {0xC0AA0500, u"There is currently a write operation in progress."},
    ErrorRow {0xC0AA0501, u"There is no write operation currently in progress."},
    ErrorRow {0xC0AA0502, u"The requested operation is only valid when media has been 'prepared'."},
    ErrorRow {0xC0AA0503,
        u"The requested operation is not valid when media has been 'prepared' but not released."},
    ErrorRow {0xC0AA0504, u"The property cannot be changed once the media has been written to."},
    ErrorRow {0xC0AA0505, u"The table of contents cannot be retrieved from an empty disc."},
    ErrorRow {0xC0AA0506, u"Only blank CD-R/RW media is supported."},
    ErrorRow {0xC0AA0507, u"Only blank CD-R/RW media is supported."},
    ErrorRow {0xC0AA0508, u"CD-R and CD-RW media support a maximum of 99 audio tracks."},
    ErrorRow {0xC0AA0509,
        u"There is not enough space left on the media to add the provided audio track."},
    ErrorRow {0xC0AA050A, u"You cannot prepare the media until you choose a recorder to use."},
    ErrorRow {0xC0AA050B, u"The ISRC provided is not valid."},
    ErrorRow {0xC0AA050C, u"The Media Catalog Number provided is not valid."},
    ErrorRow {0xC0AA050D, u"The provided audio stream is not valid."},
    ErrorRow {
        0xC0AA050E, u"This device does not support the operations required by this disc format."},
    ErrorRow {0xC0AA050F, u"The client name is not valid."},
    ErrorRow {0xC0AA0600, u"There is currently a write operation in progress."},
    ErrorRow {0xC0AA0601, u"There is no write operation currently in progress."},
    ErrorRow {0xC0AA0602, u"The requested operation is only valid when media has been 'prepared'."},
    ErrorRow {0xC0AA0603,
        u"The requested operation is not valid when media has been 'prepared' but not released."},
    ErrorRow {0xC0AA0604, u"The client name is not valid."},
    ErrorRow {0xC0AA0606, u"Only blank CD-R/RW media is supported."},
    ErrorRow {0xC0AA0607, u"Only blank CD-R/RW media is supported."},
    ErrorRow {0xC0AA0609, u"There is not enough space on the media to add the provided session."},
    ErrorRow {0xC0AA060A, u"You cannot prepare the media until you choose a recorder to use."},
    ErrorRow {0xC0AA060D, u"The provided audio stream is not valid."},
    ErrorRow {0xC0AA060E, u"The requested data block type is not supported by the current device."},
    ErrorRow {0xC0AA060F,
        u"The stream does not contain a sufficient number of sectors in the leadin for the current "
        u"media."},
    ErrorRow {
        0xC0AA0610, u"This device does not support the operations required by this disc format."},
    ErrorRow {0x80AA0900,
        u"The format is currently using the disc recorder for an erase operation. Please wait for "
        u"the erase to complete before attempting to set or clear the current disc recorder."},
    ErrorRow {0x80AA0901,
        u"The erase format only supports one recorder. You must clear the current recorder before "
        u"setting a new one."},
    ErrorRow {0x80AA0902,
        u"The drive did not report sufficient data for a READ DISC INFORMATION command. The drive "
        u"may not be supported, or the media may not be correct."},
    ErrorRow {0x80AA0903,
        u"The drive did not report sufficient data for a MODE SENSE (page 0x2A) command. The drive "
        u"may not be supported, or the media may not be correct."},
    ErrorRow {0x80AA0904, u"The drive reported that the media is not erasable."},
    ErrorRow {0x80AA0905, u"The drive failed the erase command."},
    ErrorRow {0x80AA0906,
        u"The drive did not complete the erase in one hour.The drive may require a power cycle, "
        u"media removal, or other manual intervention to resume proper operation."},
    ErrorRow {0x80AA0907,
        u"The drive returned an unexpected error during the erase.The media may be unusable, the "
        u"erase may be complete, or the drive may still be in the process of erasing the disc."},
    ErrorRow {0x80AA0908,
        u"The drive returned an error for a START UNIT (spinup) command. Manual intervention may "
        u"be required."},
    ErrorRow {0xC0AA0909, u"The current media type is unsupported."},
    ErrorRow {
        0xC0AA090A, u"This device does not support the operations required by this disc format."},
    ErrorRow {0xC0AA090B, u"The client name is not valid."},
};

} // namespace

QString RecorderErrorText(double& number)
{
    if (number < 0) {
        number = -number;
    }
    const auto* found = std::ranges::find_if(
        kRows, [number](const ErrorRow& row) { return static_cast<double>(row.code) == number; });
    if (found != kRows.end()) {
        return found->message.toString();
    }
    return u"Une erreur s'est produite: erreur "_s + runtime::Str(number);
}

} // namespace velmora::recorder
