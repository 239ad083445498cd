// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/writing/IsoBurnBench.h"

namespace velmora::test {

class IsoBurnStopTest : public IsoBurnBench { };

TEST_F(IsoBurnStopTest, AStopBeforeTheSearchEndsTheRun)
{
    StopAt("log \"Chargement du fichie ISO....\"");
    EXPECT_EQ(Run(), kStarted + kIsoConnected + kStopDemanded + kIsoAbandoned + kInterrupted);
}

TEST_F(IsoBurnStopTest, AStopInTheSearchTakesEffectBehindTheSpeed)
{
    StopAt("tray opens");
    const std::string run = Run();
    EXPECT_TRUE(run.ends_with(kWaitHidden + kSpeed + kIsoAbandoned + kInterrupted)) << run;
}

TEST_F(IsoBurnStopTest, AStopWhileTheImageIsOpenedEndsTheRun)
{
    StopAt(LineOfIso("SHCreateStreamOnFile(", ", 32)"));
    EXPECT_EQ(Run(),
        atSearch + kLookedAtBlank + kSpeed + kOpened + kStopDemanded + "stream on ISO released\n"
            + kIsoAbandoned + kInterrupted);
}

TEST_F(IsoBurnStopTest, AStopWhileTheSpeedIsSetEndsTheRunWithNoAccessTaken)
{
    StopAt("dataWriter1.SetWriteSpeed(-1, False)");
    EXPECT_EQ(Run(),
        atSearch + kLookedAtBlank + kSpeed + kOpened + kSet + kStopDemanded
            + "stream on ISO released\n" + kIsoAbandoned + kInterrupted);
}

TEST_F(IsoBurnStopTest, AStopInTheWriteCancelsItAndIsNoError)
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

TEST_F(IsoBurnStopTest, TheCompanionStopsTheWrite)
{
    transcript.At("dataWriter1 tells of action 4", [this] { companion.isStopAsked = true; });
    const std::string run = Run();
    EXPECT_TRUE(run.ends_with(kCancelled
        + "dataWriter1 tells of action 6\npump x 101\nstream on ISO released\n" + kIsoAbandoned))
        << run;
}

TEST_F(IsoBurnStopTest, AStopBehindTheWriteEjectsAndCountsAsInterrupted)
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

class IsoBurnFailureTest : public IsoBurnStopTest, public testing::WithParamInterface<IsoRow> { };

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

TEST_F(IsoBurnStopTest, WhatFailsBehindAGoodWriteLeavesAGoodDisc)
{
    for (const char* line : {"recorder.EjectMedia", "recorder.ReleaseExclusiveAccess"}) {
        FailAt(line);
        const writing::RunReport report = writing::IsoBurnRun(ContextWith(mastering)).Run();
        EXPECT_EQ(report.ending, writing::RunEnding::Done) << line;
        EXPECT_TRUE(report.isWritten) << line;
        EXPECT_EQ(report.isEjected, std::string(line) != "recorder.EjectMedia");
        EXPECT_EQ(report.errorText, u"Panne"_s) << line;
        transcript.NothingAt(line);
    }
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
