// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/EraseRun.h"

#include "drive/PublishedCodes.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/writing/TranscriptMastering.h"

#include <gtest/gtest.h>

#include <deque>

namespace velmora::test {

using shell::MessageAnswer;
using writing::EraseExtent;
using writing::RunEnding;

namespace {

class TranscriptEraseScreen final : public writing::EraseScreen {
public:
    explicit TranscriptEraseScreen(Transcript& transcript)
        : transcript_(transcript)
    {
    }

    void Pump() override { transcript_.Tell(u"pump"_s); }
    MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override
    {
        EXPECT_EQ(title, u"Effacement d'un média réinscriptible"_s);
        transcript_.Tell(u"box %1 %2"_s.arg(style).arg(Quoted(text)));
        if (answers.empty()) return MessageAnswer::Ok;
        const MessageAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    qint16 RecorderPlace() const override { return recorder; }
    bool WantsToStop() const override { return wantsToStop; }
    void SetStatus(const QString& text) override
    {
        transcript_.Tell(u"lblErase "_s + Quoted(text));
    }
    void ShowStatus(bool isVisible) override
    {
        transcript_.Tell(isVisible ? u"lblErase shown"_s : u"lblErase hidden"_s);
    }
    void CaptureMouse() override { transcript_.Tell(u"mouse captured"_s); }
    void ReleaseMouse() override { transcript_.Tell(u"mouse free"_s); }

    std::deque<MessageAnswer> answers;
    qint16 recorder = 0;
    bool wantsToStop = false;

private:
    Transcript& transcript_;
};

const std::string kWarned = R"(lblErase hidden
box 52 "ATTENTION : Vous allez effacer l'intégralité du média inséré. Voulez vous vraiment poursuivre ? "
)";

const std::string kSetUp = R"(new MsftDiscMaster2
new MsftDiscRecorder2
DiscMaster.Item(0)
recorder.InitializeDiscRecorder(id of 0)
new MsftDiscFormat2Erase
DataEraser.Recorder = recorder
DataEraser.ClientName = fnErase_
)";

const std::string kAskedForDisc = R"(recorder.EjectMedia
box 64 "Merci de mettre le média à effacer dans le lecteur puis cliquer sur Ok"
lblErase "Effacement en cours..."
lblErase shown
pump
recorder.CloseTray
)";

const std::string kAskedHow
    = "box 36 \"Voulez-vous un effacement complet (au lieu d'un effacement rapide) ?\"\n";

const std::string kTaken = R"(mouse captured
recorder.AcquireExclusiveAccess(False, fnErase_)
DataEraser.IsCurrentMediaSupported(recorder)
)";

const std::string kErased = R"(DataEraser.EraseMedia
lblErase "Temps écoulé / Temps Total Total : 0 sec. / 0 sec."
pump
lblErase "Temps écoulé / Temps Total Total : 7 sec. / 40 sec."
pump
DataEraser is done
)";

const std::string kToldAsErased = R"(recorder.ReleaseExclusiveAccess
lblErase "Effacement réussi"
mouse free
)";

const std::string kFailed = R"(mouse free
recorder.ReleaseExclusiveAccess
lblErase "Erreur au cours de la procédure d'effacement !"
)";

} // namespace

class EraseRunTest : public testing::Test {
protected:
    EraseRunTest() { script.eraseEvents = {{0, 0}, {7, 40}}; }

    /// The transcript of one run.
    std::string Run()
    {
        transcript.Clear();
        screen.answers = answers;
        report = writing::EraseRun(screen, recorders, mastering, DataEraser).Run();
        return transcript.Text();
    }
    qint32 ErrorOfRun()
    {
        return ErrorNumberOf([this] { Run(); });
    }
    void FailAt(const std::string& line)
    {
        transcript.At(line, [] { throw runtime::RuntimeError(-1); });
    }

    Transcript transcript;
    TranscriptEraseScreen screen {transcript};
    PlatformScript script {transcript};
    TranscriptMastering mastering {script};
    recorder::RecorderState recorders;
    imapi::DiscFormat2EraseRef DataEraser;
    writing::RunReport report; ///< of the last run
    /// To the warning, the prompt for the disc and the question for a full erase.
    std::deque<MessageAnswer> answers {MessageAnswer::Yes, MessageAnswer::Ok, MessageAnswer::No};
    const std::string quickRun = kWarned + kSetUp + kAskedForDisc + kAskedHow
        + "DataEraser.FullErase = False\n" + kTaken + kErased + kToldAsErased;
};

TEST_F(EraseRunTest, AScreenThatWantsToStopCancelsTheErase)
{
    script.eraseEvents = {{7, 40}};
    screen.wantsToStop = true;
    EXPECT_EQ(Run(),
        kWarned + kSetUp + kAskedForDisc + kAskedHow + "DataEraser.FullErase = False\n" + kTaken
            + R"(DataEraser.EraseMedia
lblErase "Temps écoulé / Temps Total Total : 7 sec. / 40 sec."
pump
DataEraser.CancelErase
DataEraser is done
)" + kToldAsErased);
}

TEST_F(EraseRunTest, AStoppedEraseIsReportedAsStopped)
{
    script.eraseEvents = {{7, 40}};
    screen.wantsToStop = true;
    FailAt("DataEraser is done");
    Run();
    EXPECT_EQ(report.ending, RunEnding::Stopped);
    EXPECT_EQ(report.eraseExtent, EraseExtent::Unknown);
    EXPECT_EQ(report.errorNumber, -1) << "what the drive says of its disc";
    transcript.At(
        "DataEraser is done", [] { throw drive::PublishedError(drive::hresult::kCancelled); });
    Run();
    EXPECT_EQ(report.ending, RunEnding::Stopped);
    EXPECT_EQ(report.eraseExtent, EraseExtent::Untouched);
    EXPECT_EQ(report.errorNumber, 0);
}

TEST_F(EraseRunTest, AnEraseThatWasDoneBeforeItCouldBeStoppedIsDone)
{
    screen.wantsToStop = true;
    Run();
    EXPECT_EQ(report.ending, RunEnding::Done);
    EXPECT_EQ(report.eraseExtent, EraseExtent::Erased);
}

TEST_F(EraseRunTest, AStopBehindAFailureIsNoStop)
{
    transcript.At("DataEraser is done", [this] {
        screen.wantsToStop = true;
        throw runtime::RuntimeError(-1);
    });
    Run();
    EXPECT_EQ(report.ending, RunEnding::Failed);
}

TEST_F(EraseRunTest, WhatIsAnsweredOrFoundBecauseOfAStopIsTheStop)
{
    screen.wantsToStop = true;
    script.isErasable = false;
    Run();
    EXPECT_EQ(report.ending, RunEnding::Stopped);
    EXPECT_EQ(report.eraseExtent, EraseExtent::Untouched);
    answers = {MessageAnswer::No};
    Run();
    EXPECT_EQ(report.ending, RunEnding::Stopped);
}

TEST_F(EraseRunTest, TheReportKnowsWhetherTheDriveBegan)
{
    FailAt("DataEraser.EraseMedia");
    Run();
    EXPECT_EQ(report.ending, RunEnding::Failed);
    EXPECT_EQ(report.eraseExtent, EraseExtent::Untouched);
    transcript.NothingAt("DataEraser.EraseMedia");
    FailAt("DataEraser is done");
    Run();
    EXPECT_EQ(report.ending, RunEnding::Failed);
    EXPECT_EQ(report.eraseExtent, EraseExtent::Unknown);
}

TEST_F(EraseRunTest, ADiscIsErasedQuickly)
{
    EXPECT_EQ(Run(), R"(lblErase hidden
box 52 "ATTENTION : Vous allez effacer l'intégralité du média inséré. Voulez vous vraiment poursuivre ? "
new MsftDiscMaster2
new MsftDiscRecorder2
DiscMaster.Item(0)
recorder.InitializeDiscRecorder(id of 0)
new MsftDiscFormat2Erase
DataEraser.Recorder = recorder
DataEraser.ClientName = fnErase_
recorder.EjectMedia
box 64 "Merci de mettre le média à effacer dans le lecteur puis cliquer sur Ok"
lblErase "Effacement en cours..."
lblErase shown
pump
recorder.CloseTray
box 36 "Voulez-vous un effacement complet (au lieu d'un effacement rapide) ?"
DataEraser.FullErase = False
mouse captured
recorder.AcquireExclusiveAccess(False, fnErase_)
DataEraser.IsCurrentMediaSupported(recorder)
DataEraser.EraseMedia
lblErase "Temps écoulé / Temps Total Total : 0 sec. / 0 sec."
pump
lblErase "Temps écoulé / Temps Total Total : 7 sec. / 40 sec."
pump
DataEraser is done
recorder.ReleaseExclusiveAccess
lblErase "Effacement réussi"
mouse free
)");
}

TEST_F(EraseRunTest, AFullEraseDiffersInNothingElse)
{
    answers.back() = MessageAnswer::Yes;
    EXPECT_EQ(Run(),
        kWarned + kSetUp + kAskedForDisc + kAskedHow + "DataEraser.FullErase = True\n" + kTaken
            + kErased + kToldAsErased);
}

TEST_F(EraseRunTest, TheEraserStaysUntilTheNextRunReplacesIt)
{
    Run();
    ASSERT_TRUE(DataEraser);
    EXPECT_FALSE(transcript.Holds("DataEraser released"));

    const std::string run = Run();

    const std::string replaced
        = "new MsftDiscFormat2Erase\nDataEraser released\nDataEraser.Recorder";
    EXPECT_NE(run.find(replaced), std::string::npos) << run;
    EXPECT_TRUE(run.ends_with(kErased + kToldAsErased));
}

TEST_F(EraseRunTest, ARefusedWarningEndsTheRun)
{
    answers = {MessageAnswer::No};
    EXPECT_EQ(Run(), kWarned);
    EXPECT_FALSE(DataEraser);
    EXPECT_EQ(report.ending, RunEnding::GivenUp);
}

TEST_F(EraseRunTest, TheWarningComesEvenWithoutARecorderAndNothingGuardsWhatFollows)
{
    screen.recorder = -1;
    EXPECT_EQ(ErrorOfRun(), 91);
    EXPECT_EQ(transcript.Text(), kWarned + "mouse free\n");
}

TEST_F(EraseRunTest, ASetupThatFailsBeforeThereIsAnEraserIsUnguarded)
{
    for (const char* line : {"new MsftDiscMaster2",
             "new MsftDiscRecorder2",
             "DiscMaster.Item(0)",
             "recorder.InitializeDiscRecorder(id of 0)",
             "new MsftDiscFormat2Erase",
             "DataEraser.Recorder = recorder"}) {
        FailAt(line);
        EXPECT_EQ(ErrorOfRun(), 91) << line;
        EXPECT_TRUE(transcript.Text().ends_with(std::string(line) + "\nmouse free\n")) << line;
        transcript.NothingAt(line);
        DataEraser.reset();
    }
    EXPECT_EQ(Run(), quickRun);
}

TEST_F(EraseRunTest, ASetupThatFailsLaterTellsSoInALabelThatNobodySees)
{
    FailAt("DataEraser.ClientName = fnErase_");
    EXPECT_EQ(Run(), kWarned + kSetUp + kFailed);
    EXPECT_EQ(report.ending, RunEnding::Failed);
    EXPECT_EQ(report.errorNumber, -1);
}

TEST_F(EraseRunTest, ASetupThatFailsLaterIsUnguardedWhereTheDriveIsNotHeld)
{
    FailAt("DataEraser.ClientName = fnErase_");
    transcript.At("recorder.ReleaseExclusiveAccess",
        [] { throw drive::PublishedError(drive::hresult::kFail); });
    EXPECT_EQ(ErrorOfRun(), -2147467259);
}

TEST_F(EraseRunTest, ADiscThatCantBeErasedIsFoundBehindAllQuestions)
{
    script.isErasable = false;
    EXPECT_EQ(Run(),
        kWarned + kSetUp + kAskedForDisc + kAskedHow + "DataEraser.FullErase = False\n" + kTaken
            + kFailed);
    FailAt("recorder.ReleaseExclusiveAccess");
    EXPECT_TRUE(Run().ends_with(kTaken + kFailed));
    EXPECT_EQ(report.ending, RunEnding::Refused);
    EXPECT_EQ(report.refusal, writing::Refusal::NoUsableDisc);
    EXPECT_EQ(report.errorNumber, drive::hresult::kNotErasable);
    EXPECT_EQ(report.errorText, u"Média non effaçable : prenez un disque réinscriptible."_s);
    transcript.NothingAt("recorder.ReleaseExclusiveAccess");
    script.isErasable = true;
    EXPECT_TRUE(Run().ends_with(kErased + kToldAsErased));
}

TEST_F(EraseRunTest, ATrayThatStaysOpenIsTheReasonForAnEmptyDrive)
{
    script.isErasable = false;
    script.whyNotErasable = drive::hresult::kNoMedia;
    Run();
    EXPECT_EQ(report.errorNumber, drive::hresult::kNoMedia);
    transcript.At("recorder.CloseTray",
        [] { throw runtime::RuntimeError(-1, u"Fermez le tiroir à la main."_s); });
    Run();
    EXPECT_EQ(report.errorText, u"Fermez le tiroir à la main."_s);
    script.whyNotErasable = drive::hresult::kNotErasable;
    Run();
    EXPECT_EQ(report.errorNumber, drive::hresult::kNotErasable) << "the disc is there";
    script.whyNotErasable = drive::hresult::kNoMedia;
    transcript.NothingAt("recorder.CloseTray");
    Run();
    EXPECT_EQ(report.errorNumber, drive::hresult::kNoMedia);
}

TEST_F(EraseRunTest, AnEraseThatFailsIsToldAsASuccessButNotReportedAsOne)
{
    FailAt("DataEraser is done");
    EXPECT_EQ(Run(), quickRun);
    EXPECT_EQ(report.ending, RunEnding::Failed);
    EXPECT_EQ(report.errorNumber, -1);
    transcript.NothingAt("DataEraser is done");
    EXPECT_TRUE(Run().ends_with(kErased + kToldAsErased));
    EXPECT_EQ(report.ending, RunEnding::Done);
    EXPECT_EQ(report.recorderId, u"id of 0"_s);
}

TEST_F(EraseRunTest, AQuestionForTheDiscThatFailsErasesIt)
{
    FailAt("DataEraser.IsCurrentMediaSupported(recorder)");
    EXPECT_EQ(Run(), quickRun);
}

TEST_F(EraseRunTest, ATrayThatWontCloseIsClosedOnceMore)
{
    FailAt("recorder.CloseTray");
    EXPECT_EQ(Run(),
        kWarned + kSetUp + kAskedForDisc + "recorder.CloseTray\n" + kAskedHow
            + "DataEraser.FullErase = False\n" + kTaken + kErased + kToldAsErased);
}

TEST_F(EraseRunTest, ATrayThatWontOpenIsClosedTwiceToo)
{
    FailAt("recorder.EjectMedia");
    EXPECT_EQ(Run(),
        kWarned + kSetUp + kAskedForDisc + "recorder.CloseTray\n" + kAskedHow
            + "DataEraser.FullErase = False\n" + kTaken + kErased + kToldAsErased);
}

TEST_F(EraseRunTest, EveryOtherFailureBehindTheSetupIsPassedOver)
{
    for (const char* line : {"DataEraser.FullErase = False",
             "recorder.AcquireExclusiveAccess(False, fnErase_)",
             "recorder.ReleaseExclusiveAccess"}) {
        DataEraser.reset();
        FailAt(line);
        EXPECT_EQ(Run(), quickRun) << line;
        transcript.NothingAt(line);
    }
}

} // namespace velmora::test
