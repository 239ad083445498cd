// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "recorder/RecorderErrorText.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <array>

namespace velmora::test {

using namespace Qt::StringLiterals;

namespace {

struct Row {
    double number;
    QStringView message;
};

// Every code as the positive number under which it is stored.
constexpr std::array kRows {
    Row {3232366599.0,
        u"La vérification du disque a échoué. Le disque peut contenir des erreurs et être "
        u"inutilisable."},
    Row {3232366594.0, u"La requête a été annulée."},
    Row {3232366595.0, u"La requête nécessite qu'un graveur ait été sélectionné."},
    Row {11141890.0, u"aucune opération d'écriture n'est en cours."},
    Row {11141124.0,
        u"La vitesse d'écriture choisie n'est pas supporté par le graveur. La vitesse a été "
        u"ajustée."},
    Row {11141125.0,
        u"Le type de rotation choisi n'est pas disponible. Il a été ajusté au possibilités du "
        u"graveur."},
    Row {3232366598.0,
        u"La vitesse d'écriture choisie et le type de rotation requis ne sont pas supportés par le "
        u"graveur et doivent être ajustés."},
    Row {11141632.0,
        u"The device accepted the command, but returned sense data, indicating an error."},
    Row {2158627328.0,
        u"The image has become read-only due to a call to IRawCDImageCreator.CreateResultImage."},
    Row {2158627329.0,
        u"No more tracks may be added. CD media is restricted to a range of 1-99 tracks."},
    Row {2158627331.0, u"Tracks must be added to the image before using this function."},
    Row {2158627330.0, u"The requested sector type is not supported."},
    Row {2158627332.0, u"Tracks may not be added to the image prior to the use of this function."},
    Row {2158627333.0,
        u"Adding this track would exceed the limitations of the start of the leadout."},
    Row {2158627334.0, u"Adding this track would exceed the 99 index limit."},
    Row {2158627335.0, u"The specified LBA offset is not in the list of track indexes."},
    Row {11143688.0, u"The specified LBA offset is already in the list of track indexes."},
    Row {2158627337.0, u"Index 1 (LBA offset zero) cannot be cleared."},
    Row {2158627338.0, u"Each index must have a minimum size of ten sectors."},
    Row {3232367105.0,
        u"The device reported that the requested mode page (and type) is not present."},
    Row {3232367106.0, u"There is no media in the device."},
    Row {3232367107.0, u"The media is not compatible or of unknown physical format."},
    Row {3232367108.0, u"The media is inserted upside down."},
    Row {3232367109.0,
        u"The drive reported that it is in the process of becoming ready. Please try the request "
        u"again later."},
    Row {3232367110.0,
        u"The media is currently being formatted. Please wait for the format to complete before "
        u"attempting to use the media."},
    Row {3232367111.0,
        u"The drive reported that it is performing a long-running operation, such as finishing a "
        u"write. The drive may be unusable for a long period of time."},
    Row {3232367112.0,
        u"The drive reported that the combination of parameters provided in the mode page for a "
        u"MODE SELECT command were not supported."},
    Row {3232367113.0, u"The drive reported that the media is write protected."},
    Row {3232367114.0, u"The feature page requested is not supported by the device."},
    Row {3232367115.0, u"The feature page requested is supported, but is not marked as current."},
    Row {3232367116.0, u"The drive does not support the GET CONFIGURATION command."},
    Row {3232367117.0,
        u"The device failed to accept the command within the timeout period. This may be caused by "
        u"the device having entered an inconsistent state, or the timeout value for the command "
        u"may need to be increased."},
    Row {3232367118.0,
        u"The device failed to accept the command within the timeout period. This may be caused by "
        u"the device having entered an inconsistent state, or the timeout value for the command "
        u"may need to be increased."},
    Row {3232367119.0,
        u"The media's speed is incompatible with the device. This may be caused by using higher or "
        u"lower speed media than the range of speeds supported by the device."},
    Row {3232367120.0,
        u"The device associated with this recorder during the last operation has been exclusively "
        u"locked, causing this operation to failed."},
    Row {3232367121.0, u"The client name is not valid."},
    Row {3232367359.0, u"The device reported unexpected or invalid data for a command."},
    Row {3232367360.0,
        u"The write failed because the drive did not receive data quickly enough to continue "
        u"writing. Moving the source data to the local computer, reducing the write speed, or "
        u"enabling a 'buffer underrun free' setting may resolve this issue."},
    Row {3232367361.0,
        u"The write failed because the drive returned error information that could not be "
        u"recovered from."},
    Row {3232367616.0, u"There is currently a write operation in progress."},
    Row {3232367617.0, u"There is no write operation currently in progress."},
    Row {3232367618.0, u"The requested operation is only valid with supported media."},
    Row {3232367619.0, u"The provided stream to write is not supported."},
    Row {3232367620.0,
        u"The provided stream to write is too large for the currently inserted media."},
    Row {3232367621.0,
        u"Overwriting non-blank media is not allowed without the ForceOverwrite property set to "
        u"VARIANT_TRUE."},
    Row {3232367622.0, u"The current media type is unsupported."},
    Row {
        3232367623.0, u"This device does not support the operations required by this disc format."},
    Row {3232367624.0, u"The client name is not valid."},
    Row {3232367872.0, u"There is currently a write operation in progress."},
    Row {3232367873.0, u"There is no write operation currently in progress."},
    Row {3232367874.0, u"The requested operation is only valid when media has been 'prepared'."},
    Row {3232367875.0,
        u"The requested operation is not valid when media has been 'prepared' but not released."},
    Row {3232367876.0, u"The property cannot be changed once the media has been written to."},
    Row {3232367877.0, u"The table of contents cannot be retrieved from an empty disc."},
    Row {3232367878.0, u"Only blank CD-R/RW media is supported."},
    Row {3232367879.0, u"Only blank CD-R/RW media is supported."},
    Row {3232367880.0, u"CD-R and CD-RW media support a maximum of 99 audio tracks."},
    Row {3232367881.0,
        u"There is not enough space left on the media to add the provided audio track."},
    Row {3232367882.0, u"You cannot prepare the media until you choose a recorder to use."},
    Row {3232367883.0, u"The ISRC provided is not valid."},
    Row {3232367884.0, u"The Media Catalog Number provided is not valid."},
    Row {3232367885.0, u"The provided audio stream is not valid."},
    Row {
        3232367886.0, u"This device does not support the operations required by this disc format."},
    Row {3232367887.0, u"The client name is not valid."},
    Row {3232368128.0, u"There is currently a write operation in progress."},
    Row {3232368129.0, u"There is no write operation currently in progress."},
    Row {3232368130.0, u"The requested operation is only valid when media has been 'prepared'."},
    Row {3232368131.0,
        u"The requested operation is not valid when media has been 'prepared' but not released."},
    Row {3232368132.0, u"The client name is not valid."},
    Row {3232368134.0, u"Only blank CD-R/RW media is supported."},
    Row {3232368135.0, u"Only blank CD-R/RW media is supported."},
    Row {3232368137.0, u"There is not enough space on the media to add the provided session."},
    Row {3232368138.0, u"You cannot prepare the media until you choose a recorder to use."},
    Row {3232368141.0, u"The provided audio stream is not valid."},
    Row {3232368142.0, u"The requested data block type is not supported by the current device."},
    Row {3232368143.0,
        u"The stream does not contain a sufficient number of sectors in the leadin for the current "
        u"media."},
    Row {
        3232368144.0, u"This device does not support the operations required by this disc format."},
    Row {2158627072.0,
        u"The format is currently using the disc recorder for an erase operation. Please wait for "
        u"the erase to complete before attempting to set or clear the current disc recorder."},
    Row {2158627073.0,
        u"The erase format only supports one recorder. You must clear the current recorder before "
        u"setting a new one."},
    Row {2158627074.0,
        u"The drive did not report sufficient data for a READ DISC INFORMATION command. The drive "
        u"may not be supported, or the media may not be correct."},
    Row {2158627075.0,
        u"The drive did not report sufficient data for a MODE SENSE (page 0x2A) command. The drive "
        u"may not be supported, or the media may not be correct."},
    Row {2158627076.0, u"The drive reported that the media is not erasable."},
    Row {2158627077.0, u"The drive failed the erase command."},
    Row {2158627078.0,
        u"The drive did not complete the erase in one hour.The drive may require a power cycle, "
        u"media removal, or other manual intervention to resume proper operation."},
    Row {2158627079.0,
        u"The drive returned an unexpected error during the erase.The media may be unusable, the "
        u"erase may be complete, or the drive may still be in the process of erasing the disc."},
    Row {2158627080.0,
        u"The drive returned an error for a START UNIT (spinup) command. Manual intervention may "
        u"be required."},
    Row {3232368905.0, u"The current media type is unsupported."},
    Row {
        3232368906.0, u"This device does not support the operations required by this disc format."},
    Row {3232368907.0, u"The client name is not valid."},
};

QString TextOf(double number) { return recorder::RecorderErrorText(number); }

} // namespace

TEST(RecorderErrorTextTest, EveryRowHasItsMessage)
{
    EXPECT_EQ(kRows.size(), 89U);
    for (const Row& row : kRows) {
        EXPECT_EQ(TextOf(row.number), row.message.toString()) << row.number;
    }
}

TEST(RecorderErrorTextTest, ANumberOutsideTheTableIsToldWithTwoBlanks)
{
    EXPECT_EQ(TextOf(91), u"Une erreur s'est produite: erreur  91"_s);
    EXPECT_EQ(TextOf(0), u"Une erreur s'est produite: erreur  0"_s);
}

TEST(RecorderErrorTextTest, AFailureAsItArrivesFindsNoRow)
{
    EXPECT_EQ(TextOf(-1062600190), u"Une erreur s'est produite: erreur  1062600190"_s);
    EXPECT_EQ(TextOf(3232367106.0), u"There is no media in the device."_s);
    EXPECT_EQ(TextOf(-2147483648.0), u"Une erreur s'est produite: erreur  2147483648"_s);
}

TEST(RecorderErrorTextTest, TheSmallCodesHaveTheirMessageWithEitherSign)
{
    for (const quint32 code : {0x00AA0302, 0x00AA0004, 0x00AA0005, 0x00AA0200, 0x00AA0A08}) {
        EXPECT_EQ(TextOf(-static_cast<double>(code)), TextOf(code)) << code;
        EXPECT_FALSE(TextOf(code).startsWith(u"Une erreur"_s)) << code;
    }
}

TEST(RecorderErrorTextTest, PublishedFormsOfTheTwoOddCodesFindNoRow)
{
    EXPECT_EQ(TextOf(0x00AA0006), u"Une erreur s'est produite: erreur  11141126"_s);
    EXPECT_EQ(TextOf(0x80AA0A08), u"Une erreur s'est produite: erreur  2158627336"_s);
}

TEST(RecorderErrorTextTest, ANegativeNumberIsMadePositiveInTheArgument)
{
    double number = -11141124;
    recorder::RecorderErrorText(number);
    EXPECT_EQ(number, 11141124);
}

} // namespace velmora::test
