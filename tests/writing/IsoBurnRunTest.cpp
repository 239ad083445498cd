// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "PathText.h"
#include "RunBench.h"
#include "TemporaryFolder.h"

namespace velmora::test {

using shell::MessageAnswer;

namespace {

constexpr qint32 kRoomBlocks = 1000;
constexpr std::uintmax_t kRoomBytes = 2048 * std::uintmax_t {kRoomBlocks};

const std::string kNothingUsable = "Le graveur est vide ou bien le média n'est pas vierge ou est "
                                   "incompatible à la gravure.";
const std::string kTooLarge
    = "La place disponible sur le média n'est pas suffisante pour votre projet.";
const std::string kQuestion = "Voulez-vous réintroduire un nouveau média ?";

const FoundDisc kBlank {.freeBlocks = kRoomBlocks};
const FoundDisc kUsed {.isBlank = false, .freeBlocks = kRoomBlocks};
const FoundDisc kClosed {.isBlank = false, .canBeContinued = false, .freeBlocks = kRoomBlocks};
const FoundDisc kEmptyTray {.isMediaSupported = false};

const std::string kAsked = "Label14 \"\"\nasks for the image to burn\n";
const std::string kStarted = kAsked + kOnlyStopButton + "burn page shown\npump\n";

const std::string kIsoConnected = R"(log emptied, "Connection au graveur..."
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
)";

std::string IsoLooked(int pumps)
{
    const std::string pumped = pumps == 1 ? "pump" : "pump x " + std::to_string(pumps);
    return kPrompted + "pointer 11\n" + pumped + "\npointer 1\nLabel14 \"\"\npump\n" + kWaitShown
        + kWaitHidden;
}

const std::string kLookedAtBlank = IsoLooked(5);
const std::string kLookedAtUsed = IsoLooked(6);
const std::string kLookedAtNothing = IsoLooked(1);
const std::string kSpeed = "log \"Vitesse de gravure retenue : Vitesse maximum\"\n";
const std::string kOpened = "SHCreateStreamOnFile(ISO, 32)\n";
const std::string kSet = "dataWriter1.SetWriteSpeed(-1, False)\n";
const std::string kHeld = "recorder.AcquireExclusiveAccess(False, Tamsel)\n";

const std::string kIsoWritten = kSpeed + kOpened + kSet + kHeld + R"(mouse captured
pump
companion started
dataWriter1.Write(stream on ISO)
)" + kWriteShown
    + R"(mouse free
BurnButton(2) hidden
pump
companion told to quit
recorder.EjectMedia
)";

const std::string kIsoSucceeded = R"(Label14 "Gravure effectuée avec succès."
log "Gravure effectuée avec succès."
recorder.ReleaseExclusiveAccess
stream on ISO released
dataWriter1 released
BurnButton(2) hidden
)";

const std::string kIsoAbandoned = kPutBack + "dataWriter1 released\nBurnButton(2) hidden\n";

} // namespace

class IsoBurnRunTest : public RunBench {
protected:
    IsoBurnRunTest()
    {
        script.discs = {kBlank};
        MakeIso(kRoomBytes);
    }

    void MakeIso(std::uintmax_t bytes)
    {
        screen.isoFile = text::ToProgramPath(folder.MakeFile("disc.iso", bytes).native());
    }

    /// The transcript of a run, with ISO for the image's path.
    std::string Run()
    {
        std::string run = BurnIso();
        const std::string path = screen.isoFile.toStdString();
        for (auto at = run.find(path); !path.empty() && at != std::string::npos;
             at = run.find(path)) {
            run.replace(at, path.size(), "ISO");
        }
        return run;
    }
    std::string LineOfIso(const std::string& before, const std::string& behind) const
    {
        return before + screen.isoFile.toStdString() + behind;
    }

    const std::string atSearch = kStarted + kIsoConnected + "FileBar hidden\n";
    const std::string wholeRun = atSearch + kLookedAtBlank + kIsoWritten + kIsoSucceeded;
    TemporaryFolder folder;
};

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
    state.WizardStage = 0;
    state.BurnPage = 1;
    Run();
    EXPECT_TRUE(state.BurnDone);
    EXPECT_EQ(state.WizardStage, 0);
    EXPECT_EQ(state.BurnPage, 1);
}

TEST_F(IsoBurnRunTest, TheOptionsCountForNothing)
{
    options.speed = u"7x"_s;
    options.multiSession = 2;
    options.fileSystem = u"UDF"_s;
    EXPECT_EQ(Run(), wholeRun);
}

TEST_F(IsoBurnRunTest, GivingUpTheFileDialogOnlyEmptiesTheLabel)
{
    screen.isoFile.clear();
    state.StopFlag = true;
    EXPECT_EQ(Run(), kAsked);
    EXPECT_EQ(state.ImagePath, u""_s);
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
    EXPECT_EQ(state.MediaTypeChoice, -1);
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
        state.MediaTypeChoice = 2;
        script.discs = {disc};
        EXPECT_EQ(Run(),
            atSearch + kLookedAtUsed + kRefusedDrive + Refused(kNothingUsable, kQuestion)
                + kIsoAbandoned);
        EXPECT_EQ(state.MediaTypeChoice, -1);
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
    EXPECT_EQ(screen.Label14(), u""_s);
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

// Stops.

TEST_F(IsoBurnRunTest, AStopBeforeTheSearchEndsTheRun)
{
    StopAt("log \"Chargement du fichie ISO....\"");
    EXPECT_EQ(Run(), kStarted + kIsoConnected + kStopDemanded + kIsoAbandoned + kInterrupted);
}

TEST_F(IsoBurnRunTest, AStopInTheSearchTakesEffectBehindTheSpeed)
{
    StopAt("tray opens");
    const std::string run = Run();
    EXPECT_TRUE(run.ends_with(kWaitHidden + kSpeed + kIsoAbandoned + kInterrupted)) << run;
}

TEST_F(IsoBurnRunTest, AStopWhileTheImageIsOpenedEndsTheRun)
{
    StopAt(LineOfIso("SHCreateStreamOnFile(", ", 32)"));
    EXPECT_EQ(Run(),
        atSearch + kLookedAtBlank + kSpeed + kOpened + kStopDemanded + "stream on ISO released\n"
            + kIsoAbandoned + kInterrupted);
}

TEST_F(IsoBurnRunTest, AStopWhileTheSpeedIsSetEndsTheRunWithNoAccessTaken)
{
    StopAt("dataWriter1.SetWriteSpeed(-1, False)");
    EXPECT_EQ(Run(),
        atSearch + kLookedAtBlank + kSpeed + kOpened + kSet + kStopDemanded
            + "stream on ISO released\n" + kIsoAbandoned + kInterrupted);
}

TEST_F(IsoBurnRunTest, AStopInTheWriteCancelsItAndIsNoError)
{
    StopAt("dataWriter1 tells of action 4");
    const std::string run = Run();
    EXPECT_TRUE(run.ends_with("dataWriter1 tells of action 4\n" + kStopDemanded + "pump x 101\n"
        + kCancelled + "dataWriter1 tells of action 6\npump x 101\nstream on ISO released\n"
        + kIsoAbandoned))
        << run;
    EXPECT_FALSE(transcript.Holds("recorder.ReleaseExclusiveAccess"));
    EXPECT_FALSE(transcript.Holds("recorder.EjectMedia"));
}

TEST_F(IsoBurnRunTest, TheCompanionStopsTheWrite)
{
    transcript.At("dataWriter1 tells of action 4", [this] { companion.tool = u"Undo"_s; });
    const std::string run = Run();
    EXPECT_TRUE(run.ends_with(kCancelled
        + "dataWriter1 tells of action 6\npump x 101\nstream on ISO released\n" + kIsoAbandoned))
        << run;
}

TEST_F(IsoBurnRunTest, AStopBehindTheWriteEjectsAndCountsAsInterrupted)
{
    StopAt("mouse free");
    const std::string run = Run();
    EXPECT_TRUE(run.ends_with("mouse free\n" + kStopDemanded
        + "BurnButton(2) hidden\npump\ncompanion told to quit\nrecorder.EjectMedia\n"
        + "stream on ISO released\n" + kIsoAbandoned + kInterrupted))
        << run;
    EXPECT_FALSE(transcript.Holds("recorder.ReleaseExclusiveAccess"));
}

// Failures of the platform.

namespace {

struct IsoRow {
    const char* name;
    const char* line;
    bool hasWriter;
    bool hasStream = false;
};

void PrintTo(const IsoRow& row, std::ostream* out) { *out << row.name; }

class IsoBurnFailureTest : public IsoBurnRunTest, public testing::WithParamInterface<IsoRow> { };

} // namespace

TEST_P(IsoBurnFailureTest, IsLoggedAndTheNextRunWorks)
{
    const IsoRow& row = GetParam();
    FailAt(row.line);

    const std::string run = Run();

    const std::string end = (row.hasStream ? "stream on ISO released\n" : "") + Failure("Panne", -1)
        + kPutBack + (row.hasWriter ? "dataWriter1 released\n" : "") + "BurnButton(2) hidden\n";
    EXPECT_TRUE(run.ends_with(end)) << run;
    transcript.NothingAt(row.line);
    EXPECT_EQ(Run(), wholeRun);
}

INSTANTIATE_TEST_SUITE_P(EveryCall,
    IsoBurnFailureTest,
    testing::Values(IsoRow {"TheListOfRecorders", "new MsftDiscMaster2", false},
        IsoRow {"TheRecorder", "new MsftDiscRecorder2", false},
        IsoRow {"TheId", "DiscMaster.Item(0)", false},
        IsoRow {"TheDrive", "recorder.InitializeDiscRecorder(id of 0)", false},
        IsoRow {"TheWriter", "new MsftDiscFormat2Data", false},
        IsoRow {"TheWritersRecorder", "dataWriter1.Recorder = recorder", true},
        IsoRow {"TheClientName", "dataWriter1.ClientName = Tamsel", true},
        IsoRow {"TheSpeed", "dataWriter1.SetWriteSpeed(-1, False)", true, true},
        IsoRow {"TheAccess", "recorder.AcquireExclusiveAccess(False, Tamsel)", true, true},
        IsoRow {"TheCompanion", "companion started", true, true},
        IsoRow {"TheWrite", "dataWriter1 is done", true, true},
        IsoRow {"TheTray", "recorder.EjectMedia", true, true},
        IsoRow {"TheReleaseOfTheAccess", "recorder.ReleaseExclusiveAccess", true, true}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace velmora::test
