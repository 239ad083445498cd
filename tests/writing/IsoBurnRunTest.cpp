// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/writing/IsoBurnBench.h"

namespace velmora::test {

using shell::MessageAnswer;

class IsoBurnRunTest : public IsoBurnBench { };

TEST_F(IsoBurnRunTest, AnImageBecomesADisc)
{
    EXPECT_EQ(Run(), R"(Label14 ""
asks for the image to burn
BurnButton(0) hidden
BurnButton(1) hidden
BurnButton(2) shown
burn page shown
pump
log emptied, "Connection au graveur..."
log emptied, "Initialisation..."
new MsftDiscMaster2
new MsftDiscRecorder2
DiscMaster.Item(0)
log "Initialisation du graveur..."
recorder.InitializeDiscRecorder(id of 0)
new MsftDiscFormat2Data
dataWriter1.Recorder = recorder
dataWriter1.ClientName = Tamsel
log "Chargement du fichie ISO...."
FileBar hidden
detection with the record
tray opens
box 65 "Velmora" "Merci de mettre un CD dans le lecteur puis cliquer sur Ok"
tray closes
pointer 11
pump x 5
pointer 1
Label14 ""
pump
Corvane7BarWait1 runs
Corvane7BarWait1 shown
Frame3DWait shown
pump
pointer 11
pointer 1
Frame3DWait hidden
Corvane7BarWait1 hidden
log "Vitesse de gravure retenue : Vitesse maximum"
SHCreateStreamOnFile(ISO, 32)
dataWriter1.SetWriteSpeed(-1, False)
recorder.AcquireExclusiveAccess(False, Tamsel)
mouse captured
pump
companion started
dataWriter1.Write(stream on ISO)
dataWriter1 tells of action 4
pump x 101
log "Gravure en cours..."
Label14 "Gravure en cours...<CR LF>Progression :  50,00%  "
Corvane7ProgressBar1 50
pump
pump
dataWriter1 tells of action 6
pump x 101
log "Gravure terminée."
pump
dataWriter1 is done
mouse free
BurnButton(2) hidden
pump
companion told to quit
recorder.EjectMedia
Label14 "Gravure effectuée avec succès."
log "Gravure effectuée avec succès."
recorder.ReleaseExclusiveAccess
stream on ISO released
dataWriter1 released
BurnButton(2) hidden
)");
    EXPECT_FALSE(state.BurnDone);
    EXPECT_EQ(Run(), wholeRun);
}

TEST_F(IsoBurnRunTest, TheWizardsPlaceAndTheDoneFlagStayAsTheyWere)
{
    state.BurnDone = true;
    state.WizardStage = shell::WizardStage::RootPages;
    state.BurnPage = shell::WizardPage::List;
    Run();
    EXPECT_TRUE(state.BurnDone);
    EXPECT_EQ(state.WizardStage, shell::WizardStage::RootPages);
    EXPECT_EQ(state.BurnPage, shell::WizardPage::List);
}

TEST_F(IsoBurnRunTest, TheOptionsCountForNothing)
{
    options.speed.text = u"7x"_s;
    options.session = writing::SessionOption::CloseDisc;
    options.fileSystem = writing::FileSystemOption::Udf;
    EXPECT_EQ(Run(), wholeRun);
}

TEST_F(IsoBurnRunTest, GivingUpTheFileDialogOnlyEmptiesTheLabel)
{
    screen.isoFile.clear();
    state.StopFlag = true;
    EXPECT_EQ(Run(), kAsked);
    EXPECT_EQ(state.ImagePath.Text(), u""_s);
    EXPECT_TRUE(state.StopFlag);
}

TEST_F(IsoBurnRunTest, WithoutARecorderTheRunCountsAsInterrupted)
{
    options.recorder = -1;
    EXPECT_EQ(Run(), kStarted + kPutBack + "BurnButton(2) hidden\n" + kInterrupted);
}

TEST_F(IsoBurnRunTest, AnImageOneByteLargerThanTheRoomIsRefused)
{
    MakeIso(kRoomBytes + 1);
    EXPECT_EQ(Run(), atSearch + kLookedAtBlank + Refused(kTooLarge, kQuestion) + kIsoAbandoned);
    MakeIso(kRoomBytes);
    EXPECT_EQ(Run(), wholeRun);
}

TEST_F(IsoBurnRunTest, AfterADiscThatIsTooSmallYesTakesALargerOne)
{
    script.discs = {{.freeBlocks = kRoomBlocks - 1}, kBlank};
    Answer({MessageAnswer::Yes});
    EXPECT_EQ(Run(),
        atSearch + kLookedAtBlank + Refused(kTooLarge, kQuestion) + kLookedAtBlank + kIsoWritten
            + kIsoSucceeded);
}

TEST_F(IsoBurnRunTest, AnImageOf2GibibytesHasAWrappedLengthAndIsLetThrough)
{
    MakeIso(std::uintmax_t {1} << 31);
    EXPECT_EQ(Run(), wholeRun);
    MakeIso((std::uintmax_t {1} << 32) + 2048);
    EXPECT_EQ(Run(), wholeRun);
}

TEST_F(IsoBurnRunTest, TheLargestLengthThatDoesntWrapIsCompared)
{
    MakeIso((std::uintmax_t {1} << 31) - 1);
    EXPECT_TRUE(Run().ends_with(Refused(kTooLarge, kQuestion) + kIsoAbandoned));
}

TEST_F(IsoBurnRunTest, AnImageThatIsGoneFailsWhereItsLengthIsAskedFor)
{
    std::filesystem::remove(folder / "disc.iso");
    EXPECT_EQ(
        Run(), atSearch + kLookedAtBlank + Failure("Fichier introuvable", 53) + kIsoAbandoned);
}

TEST_F(IsoBurnRunTest, AStreamThatDoesntOpenShowsOnlyAtTheWrite)
{
    script.unopenable = screen.isoFile;

    const std::string run = Run();

    EXPECT_TRUE(run.ends_with("companion started\ndataWriter1.Write(nothing)\n"
        + Failure("Ouverture du fichier impossible : aucun flux à lire.", -2147467261)
        + kIsoAbandoned))
        << run;
}

TEST_F(IsoBurnRunTest, AnEmptyDriveIsRefusedAndNoEndsTheRunSilently)
{
    script.discs = {kEmptyTray};
    EXPECT_EQ(Run(),
        atSearch + kLookedAtNothing + kRefusedDrive + Refused(kNothingUsable, kQuestion)
            + kIsoAbandoned);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::Failed);
    script.discs = {kBlank};
    EXPECT_EQ(Run(), wholeRun);
}

TEST_F(IsoBurnRunTest, AfterAnEmptyDriveYesAsksForADiscAgain)
{
    script.discs = {kEmptyTray, kBlank};
    Answer({MessageAnswer::Yes});
    EXPECT_EQ(Run(),
        atSearch + kLookedAtNothing + kRefusedDrive + Refused(kNothingUsable, kQuestion)
            + kLookedAtBlank + kIsoWritten + kIsoSucceeded);
}

TEST_F(IsoBurnRunTest, ADiscThatHoldsDataIsRefusedLikeAnEmptyDrive)
{
    for (const FoundDisc& disc : {kUsed, kClosed}) {
        state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
        script.discs = {disc};
        EXPECT_EQ(Run(),
            atSearch + kLookedAtUsed + kRefusedDrive + Refused(kNothingUsable, kQuestion)
                + kIsoAbandoned);
        EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::Failed);
    }
}

TEST_F(IsoBurnRunTest, AfterADiscWhoseDataWasImportedEvenABlankOneIsRefusedUntilTheNextRun)
{
    script.discs = {kUsed, kBlank, kBlank};
    Answer({MessageAnswer::Yes, MessageAnswer::Yes});
    const std::string refused = Refused("Le média n'est pas vierge.", kQuestion);
    EXPECT_EQ(Run(),
        atSearch + kLookedAtUsed + kRefusedDrive + Refused(kNothingUsable, kQuestion)
            + kLookedAtBlank + refused + kLookedAtBlank + refused + kIsoAbandoned);
    EXPECT_EQ(Run(), wholeRun);
}

TEST_F(IsoBurnRunTest, AfterAClosedDiscABlankOneIsTaken)
{
    script.discs = {kClosed, kBlank};
    Answer({MessageAnswer::Yes});
    EXPECT_TRUE(Run().ends_with(kLookedAtBlank + kIsoWritten + kIsoSucceeded));
}

TEST_F(IsoBurnRunTest, CancellingThePromptEndsTheRunSilently)
{
    screen.promptAnswer = MessageAnswer::Cancel;
    EXPECT_EQ(Run(), atSearch + kPrompt + kIsoAbandoned);
    EXPECT_EQ(screen.status, u""_s);
    screen.promptAnswer = MessageAnswer::Ok;
    EXPECT_EQ(Run(), wholeRun);
}

TEST_F(IsoBurnRunTest, WithTheTypeUnknownTheFlagsAndTheRoomOfTheDiscBeforeCount)
{
    MakeIso(kRoomBytes + 1);
    script.discs = {kBlank, {.type = 0}};
    Answer({MessageAnswer::Yes});
    const std::string lookedAtUnknown = IsoLooked(4);
    EXPECT_EQ(Run(),
        atSearch + kLookedAtBlank + Refused(kTooLarge, kQuestion) + lookedAtUnknown
            + Refused(kTooLarge, kQuestion) + kIsoAbandoned);
    MakeIso(kRoomBytes);
    EXPECT_EQ(Run(), // and in the first pass no disc counts as blank
        atSearch + lookedAtUnknown + kRefusedDrive + Refused(kNothingUsable, kQuestion)
            + kIsoAbandoned);
}

} // namespace velmora::test
