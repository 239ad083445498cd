// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/writing/RunBench.h"

#include <sstream>
#include <vector>

namespace velmora::test {

namespace {

/// A bench of which a test may have several, one after another.
class FreshBench : public RunBench {
public:
    using RunBench::Burn;
    using RunBench::companion;
    using RunBench::state;
    using RunBench::Stop;
    using RunBench::transcript;

    void TestBody() override { }
};

const std::string kFound = Looked(kPrompted) + Present("CD-R") + SpeedLogged("41", "Maximum");
const std::string kCaptured = "mouse captured\npump\n";
const std::string kWriteBegun = "companion started\ndataWriter1.Write(image stream)\n"
                                "dataWriter1 tells of action 4\n";

} // namespace

/// A stop at every point at which one is honoured.
class BurnStopTest : public RunBench {
protected:
    void TearDown() override
    {
        EXPECT_FALSE(state.BurnDone);
        EXPECT_FALSE(transcript.Holds("log \"Une erreur est survenue : \""));
        EXPECT_FALSE(transcript.Holds("log \"Gravure effectuée avec succès.\""));
        EXPECT_TRUE(transcript.Holds("BurnButton(2) hidden"));
    }

    const std::string atImage = kConnected + Configured() + kLetterAdded + kImageMade;
    const std::string atWrite
        = atImage + kFound + "result.ImageStream\n" + "dataWriter1.SetWriteSpeed(-1, False)\n";
};

TEST_F(BurnStopTest, BeforeAnEntry)
{
    StopAt("Corvane7ProgressBar1 shown");

    EXPECT_EQ(Burn(),
        kConnected + Configured() + "Corvane7ProgressBar1 0\nCorvane7ProgressBar1 shown\n"
            + kStopDemanded + "pump\npump\n" + kAbandoned + kInterrupted);
}

TEST_F(BurnStopTest, BehindAnEntry)
{
    AddRow(u"second.txt"_s, compilation::EntryKind::File, u"\\home\\u\\second.txt"_s);
    StopAt("Corvane7ProgressBar1 50");

    const std::string run = Burn();

    EXPECT_TRUE(run.ends_with(
        "Corvane7ProgressBar1 50\n" + kStopDemanded + "pump\n" + kAbandoned + kInterrupted))
        << run;
    EXPECT_FALSE(transcript.Holds("SHCreateStreamOnFile(\\home\\u\\second.txt, 32)"));
    EXPECT_FALSE(transcript.Holds("FSI1.CreateResultImage"));
}

TEST_F(BurnStopTest, BehindTheResultImage)
{
    StopAt("FSI1.CreateResultImage");

    EXPECT_TRUE(Burn().ends_with("FSI1.CreateResultImage\n" + kStopDemanded
        + R"(log "Création de l'image disque réalisée avec succès..."
Label14 "Création de l'image disque réalisée avec succès..."
)" + kAbandoned
        + kInterrupted));
}

TEST_F(BurnStopTest, BeforeTheImageIsCopiedToItsFile)
{
    StopAt("log \"Préparation à la sauvegarde de l'image disque...\"");

    EXPECT_TRUE(SaveIso().ends_with("log \"Préparation à la sauvegarde de l'image disque...\"\n"
        + kStopDemanded + R"(pump
result.ImageStream
SHCreateStreamOnFile(\home\u\disc.iso, 4097)
log "Sauvegarde de l'image disque..."
log "         Veuillez patienter......."
stream on \home\u\disc.iso released
image stream released
)" + kAbandoned
        + kInterrupted));
}

TEST_F(BurnStopTest, BehindTheSpeed)
{
    StopAt("log \"Vitesse de gravure retenue : 41x (Sélection utilisateur : Maximum) \"");
    EXPECT_EQ(Burn(), atImage + kFound + kStopDemanded + kAbandoned + kInterrupted);
}

TEST_F(BurnStopTest, BehindTheImageStream)
{
    StopAt("result.ImageStream");
    EXPECT_EQ(Burn(),
        atImage + kFound + "result.ImageStream\n" + kStopDemanded + "image stream released\n"
            + kAbandoned + kInterrupted);
}

TEST_F(BurnStopTest, BehindTheWritersSettings)
{
    StopAt("dataWriter1.SetWriteSpeed(-1, False)");
    EXPECT_EQ(
        Burn(), atWrite + kStopDemanded + "image stream released\n" + kAbandoned + kInterrupted);
}

TEST_F(BurnStopTest, WithTheMouseCapturedTheWriteItselfIsCancelled)
{
    StopAt("mouse captured");

    EXPECT_EQ(Burn(),
        atWrite + "mouse captured\n" + kStopDemanded + "pump\n" + kWriteBegun + "pump x 101\n"
            + kCancelled + R"(dataWriter1 tells of action 6
pump x 101
image stream released
)" + kAbandoned);
}

TEST_F(BurnStopTest, InTheWriteByTheButton)
{
    transcript.AtNth("dataWriter1 tells of action 4", 1, [this] { Stop(); });

    EXPECT_EQ(Burn(),
        atWrite + kCaptured + kWriteBegun + kStopDemanded + "pump x 101\n" + kCancelled
            + R"(dataWriter1 tells of action 6
pump x 101
image stream released
)" + kAbandoned);
    EXPECT_FALSE(transcript.Holds("mouse free"));
    EXPECT_FALSE(transcript.Holds("recorder.EjectMedia"));
}

TEST_F(BurnStopTest, InTheWriteByTheCompanion)
{
    transcript.At("dataWriter1 tells of action 4", [this] { companion.isStopAsked = true; });

    EXPECT_EQ(Burn(),
        atWrite + kCaptured + kWriteBegun + "pump x 101\n" + kCancelled
            + R"(dataWriter1 tells of action 6
pump x 101
image stream released
)" + kAbandoned);
    EXPECT_TRUE(state.StopFlag);
}

TEST_F(BurnStopTest, BehindTheWriteAFinishedDiscCountsAsInterrupted)
{
    StopAt("mouse free");

    EXPECT_EQ(Burn(),
        atWrite + kCaptured + "companion started\ndataWriter1.Write(image stream)\n" + kWriteShown
            + "mouse free\n" + kStopDemanded
            + "pump\ncompanion told to quit\nrecorder.EjectMedia\nimage stream released\n"
            + kAbandoned + kInterrupted);
}

TEST_F(BurnStopTest, ASecondClickRepeatsItsWordsAndChangesNothingElse)
{
    transcript.At("result.ImageStream", [this] {
        Stop();
        Stop();
    });
    EXPECT_EQ(Burn(),
        atImage + kFound + "result.ImageStream\n" + kStopDemanded + kStopDemanded
            + "image stream released\n" + kAbandoned + kInterrupted);
}

TEST_F(BurnStopTest, AFailureAfterAStopIsNotReported)
{
    transcript.At("mouse captured", [this] {
        state.StopFlag = true;
        throw runtime::RuntimeError(-1);
    });
    EXPECT_EQ(Burn(), atWrite + "mouse captured\nimage stream released\n" + kAbandoned);
}

TEST(BurnStopLastingTest, AfterACancelledWriteTheNextOneShowsNothingAndCantBeStopped)
{
    FreshBench bench;
    bench.transcript.AtNth("dataWriter1 tells of action 4", 1, [&] { bench.Stop(); });
    bench.Burn();
    bench.transcript.At("dataWriter1 tells of action 4", [&] { bench.Stop(); });

    const std::string run = bench.Burn();

    const std::string silent = kWriteBegun + kStopDemanded + R"(pump x 101
dataWriter1 tells of action 6
pump x 101
dataWriter1 is done
mouse free
)";
    EXPECT_NE(run.find(silent), std::string::npos) << run;
    EXPECT_FALSE(bench.state.BurnDone); // after the write the stop counts

    bench.transcript.NothingAt("dataWriter1 tells of action 4");
    bench.Burn();
    EXPECT_TRUE(bench.state.BurnDone);
}

TEST(BurnStopEverywhereTest, NoStopInAnyPumpEverEndsInASuccessOrAnError)
{
    FreshBench undisturbed;
    undisturbed.Burn();
    const int pumps = undisturbed.transcript.Count("pump");
    ASSERT_GT(pumps, 200);
    for (int number = 1; number <= pumps; ++number) {
        FreshBench bench;
        bench.transcript.AtNth("pump", number, [&] { bench.Stop(); });
        const std::string run = bench.Burn();
        const bool isCancelled = bench.transcript.Holds("dataWriter1.CancelWrite");
        EXPECT_EQ(
            bench.transcript.Holds("log \"Gravure interrompue par l'utilisateur.\""), !isCancelled)
            << run;
        EXPECT_FALSE(bench.transcript.Holds("log \"Gravure effectuée avec succès.\"")) << run;
        EXPECT_FALSE(bench.transcript.Holds("log \"Une erreur est survenue : \"")) << run;
        EXPECT_EQ(bench.transcript.Count("dataWriter1 released"), 1);
        EXPECT_EQ(bench.transcript.Count("FSI1 released"), 1);
        EXPECT_FALSE(bench.state.BurnDone);
        bench.transcript.NothingAt("pump");
        bench.Burn();
        EXPECT_TRUE(bench.state.BurnDone) << number;
    }
}

} // namespace velmora::test
