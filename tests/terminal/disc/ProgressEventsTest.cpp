// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/JsonScreen.h"
#include "terminal/disc/BurnConsole.h"
#include "terminal/disc/EraseConsole.h"
#include "tests/terminal/disc/DiscJobBench.h"
#include "writing/EraseRun.h"

namespace velmora::terminal {

namespace {

using writing::RunPhase;

/// The progress that runs report to another program.
class ProgressEventsTest : public DiscJobBench {
protected:
    ProgressEventsTest()
        : context {.screen = json,
            .input = input,
            .mastering = *mastering,
            .witness = witness,
            .pump = pump,
            .clock = clock,
            .stopRequested = [] { return false; },
            .insistOnOrderlyEnd = [](bool) {}}
    {
    }

    std::string LinesOf(const writing::RunFigures& figures)
    {
        shell::ProgramState state;
        BurnConsole(context, Assent::Given, state).ShowFigures(figures);
        return screen.Text();
    }

    JsonScreen json {screen, "burn", [] { return SteadyTime {}; }};
    DiscContext context;
};

} // namespace

TEST_F(ProgressEventsTest, AWriteTellsItsBytesSpeedAndTimeLeft)
{
    EXPECT_EQ(LinesOf({.phase = RunPhase::Writing,
                  .sectors = 1000,
                  .writtenSectors = 250,
                  .sectorsPerSecond = 100.0,
                  .secondsLeft = 7.5}),
        "= {\"phase\":\"writing\",\"type\":\"phase\",\"version\":1}\n"
        "= {\"done\":512000,\"perSecond\":204800,\"phase\":\"writing\",\"secondsLeft\":7.5,"
        "\"total\":2048000,\"type\":\"progress\",\"unit\":\"bytes\",\"version\":1}\n");
}

TEST_F(ProgressEventsTest, AComparisonTellsWhatIsCompared)
{
    EXPECT_EQ(LinesOf({.phase = RunPhase::Comparing,
                  .sectors = 1000,
                  .writtenSectors = 1000,
                  .comparedSectors = 1}),
        "= {\"phase\":\"comparing\",\"type\":\"phase\",\"version\":1}\n"
        "= {\"done\":2048,\"phase\":\"comparing\",\"total\":2048000,\"type\":\"progress\","
        "\"unit\":\"bytes\",\"version\":1}\n");
}

TEST_F(ProgressEventsTest, WhatLiesBeforeTheRecordingIsNotCounted)
{
    EXPECT_EQ(LinesOf({.phase = RunPhase::Writing,
                  .firstSector = 500,
                  .sectors = 1000,
                  .writtenSectors = -500}), // before the first sector is written
        "= {\"phase\":\"writing\",\"type\":\"phase\",\"version\":1}\n"
        "= {\"done\":0,\"phase\":\"writing\",\"total\":2048000,\"type\":\"progress\","
        "\"unit\":\"bytes\",\"version\":1}\n");
}

TEST_F(ProgressEventsTest, OtherPhasesAreToldWithoutAnAmount)
{
    EXPECT_EQ(LinesOf({.phase = RunPhase::Finalizing, .sectors = 1000, .writtenSectors = 1000}),
        "= {\"phase\":\"finalizing\",\"type\":\"phase\",\"version\":1}\n");
}

TEST_F(ProgressEventsTest, NothingIsToldOfARunThatIsOver)
{
    EXPECT_EQ(LinesOf({.phase = RunPhase::Idle}), "");
}

TEST_F(ProgressEventsTest, AnEraseTellsItsSeconds)
{
    EraseConsole console(context, Assent::Given, false, 0);
    writing::DataEraser_Update(console, 3, 45);
    EXPECT_EQ(screen.Text(),
        "= {\"phase\":\"erasing\",\"type\":\"phase\",\"version\":1}\n"
        "= {\"done\":3,\"phase\":\"erasing\",\"total\":45,\"type\":\"progress\","
        "\"unit\":\"seconds\",\"version\":1}\n");
}

} // namespace velmora::terminal
