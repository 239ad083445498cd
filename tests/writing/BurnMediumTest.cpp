// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/writing/RunBench.h"

namespace velmora::test {

using shell::MessageAnswer;

namespace {

const std::string kEmptyDrive = "Le graveur est vide ou le média est incompatible à la gravure.";
const std::string kNotBlank = "Le média n'est pas vierge.";
const std::string kTooSmall
    = "La place disponible sur le média n'est pas suffisante pour votre projet.";
const std::string kWellSpelt = "Voulez-vous réintroduire un nouveau média ?";

const FoundDisc kDvd {.type = 6, .freeBlocks = 2'295'104, .speeds = {10800, 5400, 2700}};
const FoundDisc kBluRay {.type = 18, .freeBlocks = 12'219'392, .speeds = {13170, 8780}};
const FoundDisc kNoDisc {.isMediaSupported = false};
const FoundDisc kUsedDisc {.isBlank = false};
const FoundDisc kClosedDisc {.isBlank = false, .canBeContinued = false, .freeBlocks = 0};
const FoundDisc kWrongDrive {.isRecorderSupported = false};
const FoundDisc kUnknownDisc {.type = 0};

std::string OtherThan(const std::string& asked, const std::string& found)
{
    return "Le média inséré (" + found + ") est différent du média demandé (" + asked + ") !";
}

/// What a pass of the media loop shows if it finds no disc of a writable kind.
std::string LookedAtNothing(const std::string& prompt)
{
    return "pump\n" + kWaitShown + prompt + "pointer 11\npump\npointer 1\n" + kWaitHidden;
}

const std::string kBurnedCd
    = Present("CD-R") + SpeedLogged("41", "Maximum") + Written() + kSucceeded;

} // namespace

/// The search for a disc. What comes before it is the same in all of them.
class BurnMediumTest : public RunBench {
protected:
    /// The transcript of a run from the search on.
    std::string Search()
    {
        const std::string run = Burn();
        const auto at = run.find(kImageMade);
        return at == std::string::npos ? run : run.substr(at + kImageMade.size());
    }
};

TEST_F(BurnMediumTest, AnEmptyDriveIsRefusedAndNoEndsTheRunSilently)
{
    script.discs = {kNoDisc};

    EXPECT_EQ(Search(),
        LookedAtNothing(kPrompted) + kRefusedDrive + Refused(kEmptyDrive, kWellSpelt) + kAbandoned);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::Failed);
    EXPECT_FALSE(state.BurnDone);
}

TEST_F(BurnMediumTest, AfterAnEmptyDriveYesLooksAgainWithoutThePrompt)
{
    script.discs = {kNoDisc, {}};
    Answer({MessageAnswer::Yes});

    EXPECT_EQ(Search(),
        LookedAtNothing(kPrompted) + kRefusedDrive + Refused(kEmptyDrive, kWellSpelt)
            + Looked(kUnprompted) + kBurnedCd);
    EXPECT_TRUE(state.BurnDone);
}

TEST_F(BurnMediumTest, AfterAnEmptyDriveAnyFamilyIsTaken)
{
    script.discs = {kNoDisc, kDvd};
    Answer({MessageAnswer::Yes});

    Burn();

    EXPECT_TRUE(state.BurnDone);
    EXPECT_TRUE(transcript.Holds("log \"Média présent dans le lecteur : DVD+R\""));
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::Failed);
}

TEST_F(BurnMediumTest, TheRunAfterAnEmptyDriveConfiguresItsImageWithoutAKnownType)
{
    script.discs = {kNoDisc};
    Burn();
    FailAt("FSI1.ChooseImageDefaultsForMediaType(-1)");

    EXPECT_TRUE(Burn().ends_with(Failure("Panne", -1) + kAbandoned));
}

TEST_F(BurnMediumTest, ADiscOfAnotherFamilyIsRefused)
{
    script.discs = {kDvd};

    EXPECT_EQ(Search(),
        Looked(kPrompted) + Present("DVD+R") + Refused(OtherThan("CD-R ou RW", "DVD+R"))
            + kAbandoned);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::CdR);
    script.discs = {{}};
    EXPECT_EQ(Burn(), WholeDiscRun());
}

TEST_F(BurnMediumTest, AfterADiscOfAnotherFamilyYesLooksAgain)
{
    script.discs = {kDvd, {}};
    Answer({MessageAnswer::Yes});

    EXPECT_EQ(Search(),
        Looked(kPrompted) + Present("DVD+R") + Refused(OtherThan("CD-R ou RW", "DVD+R"))
            + Looked(kUnprompted) + kBurnedCd);
}

TEST_F(BurnMediumTest, EveryFamilyIsAskedForByItsOwnName)
{
    const std::vector<std::tuple<shell::DiscTypeChoice, FoundDisc, std::string>> rows {
        {shell::DiscTypeChoice::DvdPlusR, {}, OtherThan("DVD-R ou RW", "CD-R")},
        {shell::DiscTypeChoice::DvdPlusRDualLayer,
            kBluRay,
            OtherThan("DVD-R ou RW", "Blue-Ray Disc R")},
        {shell::DiscTypeChoice::BdR, kDvd, OtherThan("Blue Ray Disc", "DVD+R")},
        {shell::DiscTypeChoice::CdR, kBluRay, OtherThan("CD-R ou RW", "Blue-Ray Disc R")},
        {shell::ChoiceOf(shell::DiscFormat::InDrive), {}, OtherThan("", "CD-R")}};
    for (const auto& [choice, disc, caption] : rows) {
        state.MediaTypeChoice = choice;
        script.discs = {disc};
        EXPECT_TRUE(Search().ends_with(Refused(caption) + kAbandoned)) << caption;
    }
}

TEST_F(BurnMediumTest, ACompilationAsLargeAsTheRoomFits)
{
    state.TotalSizeBytes = 359'847.0 * 2048;
    EXPECT_EQ(Burn(), WholeDiscRun());
}

TEST_F(BurnMediumTest, ACompilationOneByteLargerIsRefused)
{
    state.TotalSizeBytes = 359'847.0 * 2048 + 1;
    EXPECT_EQ(Search(), Looked(kPrompted) + Present("CD-R") + Refused(kTooSmall) + kAbandoned);
}

TEST_F(BurnMediumTest, AfterADiscThatIsTooSmallYesTakesALargerOne)
{
    state.TotalSizeBytes = 700e6;
    script.discs = {{.freeBlocks = 332'800}, {}};
    Answer({MessageAnswer::Yes});

    EXPECT_EQ(Search(),
        Looked(kPrompted) + Present("CD-R") + Refused(kTooSmall) + Looked(kUnprompted) + kBurnedCd);
}

TEST_F(BurnMediumTest, ADiscThatHoldsDataIsRefused)
{
    for (const FoundDisc& disc : {kUsedDisc, kClosedDisc}) {
        script.discs = {disc};
        state.TotalSizeBytes = 0;
        EXPECT_EQ(
            Search(), Looked(kPrompted, false) + Present("CD-R") + Refused(kNotBlank) + kAbandoned);
    }
    script.discs = {{}};
    EXPECT_EQ(Burn(), WholeDiscRun());
}

TEST_F(BurnMediumTest, AfterAClosedDiscABlankOneIsTaken)
{
    state.TotalSizeBytes = 0;
    script.discs = {kClosedDisc, {}};
    Answer({MessageAnswer::Yes});

    EXPECT_EQ(Search(),
        Looked(kPrompted, false) + Present("CD-R") + Refused(kNotBlank) + Looked(kUnprompted)
            + kBurnedCd);
}

TEST_F(BurnMediumTest, AfterADiscWhoseDataWasImportedEvenABlankOneIsRefusedUntilTheNextRun)
{
    script.discs = {kUsedDisc, {}, {}};
    Answer({MessageAnswer::Yes, MessageAnswer::Yes});

    EXPECT_EQ(Search(),
        Looked(kPrompted, false) + Present("CD-R") + Refused(kNotBlank) + Looked(kUnprompted)
            + Present("CD-R") + Refused(kNotBlank) + Looked(kPrompted) + Present("CD-R")
            + Refused(kNotBlank) + kAbandoned);
    EXPECT_EQ(Burn(), WholeDiscRun());
}

TEST_F(BurnMediumTest, WithAChosenFormatEveryOtherPassAsksForADisc)
{
    script.discs = {kDvd};
    Answer({MessageAnswer::Yes, MessageAnswer::Yes, MessageAnswer::Yes});
    const std::string refused = Present("DVD+R") + Refused(OtherThan("CD-R ou RW", "DVD+R"));

    EXPECT_EQ(Search(),
        Looked(kPrompted) + refused + Looked(kUnprompted) + refused + Looked(kPrompted) + refused
            + Looked(kUnprompted) + refused + kAbandoned);
}

TEST_F(BurnMediumTest, CancellingThePromptLeavesThePanelAndTheHourglass)
{
    screen.promptAnswer = MessageAnswer::Cancel;

    EXPECT_EQ(Search(), "pump\n" + kWaitShown + kPrompt + kAbandoned);
    screen.promptAnswer = MessageAnswer::Ok;
    EXPECT_EQ(Burn(), WholeDiscRun());
}

TEST_F(BurnMediumTest, ATypeWithoutANameEndsTheRunAsACancelledPromptDoes)
{
    script.discs = {{.type = 12}};
    const std::string run = Search();
    EXPECT_TRUE(run.ends_with("pointer 1\n" + kAbandoned)) << run;
}

TEST_F(BurnMediumTest, ARecorderThatIsNotSupportedCountsAsAnotherDisc)
{
    script.discs = {kWrongDrive};
    const std::string status = "Ce graveur n'est pas supporté";

    EXPECT_EQ(Search(),
        LookedAtNothing(kPrompted) + Present(status) + Refused(OtherThan("CD-R ou RW", status))
            + kAbandoned);
}

TEST_F(BurnMediumTest, WithAnyFamilyTakenARecorderThatIsNotSupportedCountsAsNotBlank)
{
    state.TotalSizeBytes = 0; // no room was found in this run
    script.discs = {kNoDisc, kWrongDrive};
    Answer({MessageAnswer::Yes});
    EXPECT_TRUE(Search().ends_with(
        Present("Ce graveur n'est pas supporté") + Refused(kNotBlank) + kAbandoned));
}

TEST_F(BurnMediumTest, AfterABlankDiscARecorderThatIsNotSupportedPassesAllTests)
{
    state.TotalSizeBytes = 700e6;
    script.discs = {kNoDisc, {.freeBlocks = 332'800}, kWrongDrive};
    Answer({MessageAnswer::Yes, MessageAnswer::Yes});
    // The previous disc's free space counts too.
    EXPECT_TRUE(Search().ends_with(Refused(kTooSmall) + LookedAtNothing(kPrompted)
        + Present("Ce graveur n'est pas supporté") + Refused(kTooSmall) + kAbandoned));

    state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
    script.discs = {kNoDisc, {}, kWrongDrive};
    Answer({MessageAnswer::Yes, MessageAnswer::Yes});
    state.TotalSizeBytes = 359'847.0 * 2048;
    transcript.AtNth("log \"Abandon !\"", 2, [this] { state.TotalSizeBytes = 1000; });
    transcript.AtNth(
        "log \"Média présent dans le lecteur : CD-R\"", 1, [this] { state.TotalSizeBytes += 1; });
    EXPECT_TRUE(Search().ends_with(Present("Ce graveur n'est pas supporté")
        + SpeedLogged("41", "Maximum") + Written() + kSucceeded));
}

TEST_F(BurnMediumTest, AnUnusableRecordIsNamedAndRefused)
{
    recorders.RecorderList[0].RecorderId = u"@@@@@@@@@@sr0"_s;
    const std::string status = "Ce lecteur est indisponible ou n'est pas un graveur.";

    EXPECT_EQ(Search(),
        "pump\n" + kWaitShown + kWaitHidden + Present(status)
            + Refused(OtherThan("CD-R ou RW", status)) + kAbandoned);
}

TEST_F(BurnMediumTest, ADiscOfUnknownTypeCountsAsAnotherDisc)
{
    script.discs = {kUnknownDisc};
    const std::string status = "Lecteur vide ou type de disque non supporté.";
    EXPECT_TRUE(Search().ends_with(
        Present(status) + Refused(OtherThan("CD-R ou RW", status)) + kAbandoned));
}

TEST_F(BurnMediumTest, ASelectionBeyondTheRecordsIsAnError)
{
    state.SelectedRecorder = 2;
    EXPECT_EQ(Search(),
        "pump\n" + kWaitShown + Failure("L'indice n'appartient pas à la sélection", 9)
            + kAbandoned);
}

TEST_F(BurnMediumTest, AStopAskedForInTheSearchTakesEffectBehindIt)
{
    StopAt("detection with the record");

    EXPECT_EQ(Search(),
        "pump\n" + kWaitShown + kUnprompted + kStopDemanded + kPrompted.substr(kUnprompted.size())
            + "pointer 11\npump x 5\npointer 1\n" + kWaitHidden + Present("CD-R")
            + SpeedLogged("41", "Maximum") + kAbandoned + kInterrupted);
}

/// The automatic choice: the image follows the disc that was there, and so does the search.
class AutomaticBurnTest : public RunBench {
protected:
    AutomaticBurnTest() { state.MediaTypeChoice = shell::DiscTypeChoice::AsDetected; }

    const std::string opening = kConnected + Configured("FSI1.ChooseImageDefaults(the recorder)\n")
        + kLetterAdded + kImageMade;
};

TEST_F(AutomaticBurnTest, ACdIsTakenWithoutThePrompt)
{
    state.DiscFormat = shell::DiscFormat::Cd;

    EXPECT_EQ(Burn(), opening + Looked(kUnprompted) + kBurnedCd);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::CdR);
    EXPECT_EQ(Burn(), WholeDiscRun()); // the choice isn't automatic any more
}

TEST_F(AutomaticBurnTest, ADvdIsRefusedWithoutANameForWhatWasAskedFor)
{
    state.DiscFormat = shell::DiscFormat::Dvd;
    script.discs = {kDvd};

    EXPECT_EQ(Burn(),
        opening + Looked(kUnprompted) + Present("DVD+R") + Refused(OtherThan("", "DVD+R"))
            + kAbandoned);
    EXPECT_EQ(state.MediaTypeChoice, shell::ChoiceOf(shell::DiscFormat::Dvd));
    Burn();
    EXPECT_TRUE(transcript.Holds("FSI1.ChooseImageDefaultsForMediaType(1)"));
}

TEST_F(AutomaticBurnTest, ABluRayDiscIsTakenWithoutAComparison)
{
    state.DiscFormat = shell::DiscFormat::BluRay;
    script.discs = {kBluRay};
    const std::string run = opening + Looked(kUnprompted) + Present("Blue-Ray Disc R")
        + SpeedLogged("0", "Maximum") + Written() + kSucceeded;

    EXPECT_EQ(Burn(), run);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::AsDetected);
    EXPECT_EQ(Burn(), run); // still automatic
}

TEST_F(AutomaticBurnTest, OfADvdTheBoxSaysWhichTileToChoose)
{
    state.DiscFormat = shell::DiscFormat::Dvd;
    script.discs = {kDvd};
    Burn();
    EXPECT_EQ(screen.advice,
        u"Pour graver un DVD, revenez à la première page et choisissez « Disque DVD »."_s);
}

TEST_F(BurnMediumTest, OfAUsedRewritableDiscTheBoxSaysWhereItIsErased)
{
    script.discs = {{.type = 3, .isBlank = false}};
    Burn();
    EXPECT_EQ(screen.advice,
        u"Ce disque peut être effacé : onglet « Options... », « Effacer un disque RW »."_s);
    script.discs = {kUsedDisc};
    Burn();
    EXPECT_EQ(screen.advice, QString()) << "a CD-R stays as it is";
    script.discs = {kDvd};
    Burn();
    EXPECT_EQ(screen.advice, QString());
}

TEST_F(AutomaticBurnTest, ADiscWithoutARecognisedNameIsRefused)
{
    state.DiscFormat = shell::DiscFormat::InDrive;
    EXPECT_TRUE(Burn().ends_with(Present("CD-R") + Refused(OtherThan("", "CD-R")) + kAbandoned));
    EXPECT_EQ(state.MediaTypeChoice, shell::ChoiceOf(shell::DiscFormat::InDrive));
}

TEST_F(AutomaticBurnTest, TheSecondPassAsksForADisc)
{
    state.DiscFormat = shell::DiscFormat::BluRay;
    script.discs = {kClosedDisc, {}};
    state.TotalSizeBytes = 0;
    Answer({MessageAnswer::Yes});

    EXPECT_EQ(Burn(),
        opening + Looked(kUnprompted, false) + Present("CD-R") + Refused(kNotBlank)
            + Looked(kPrompted) + kBurnedCd);
}

} // namespace velmora::test
