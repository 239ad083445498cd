// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/ProgressLine.h"

#include "tests/terminal/TranscriptScreen.h"

#include <chrono>
#include <gtest/gtest.h>

namespace velmora::terminal {

using namespace std::chrono_literals;

namespace {

class ProgressLineTest : public testing::Test {
protected:
    ProgressLine On(TranscriptScreen& screen)
    {
        return {screen, [this] { return now_; }};
    }
    void Wait(std::chrono::milliseconds time) { now_ += time; }

    TranscriptScreen terminal_ {ProgressStyle::OneLine};
    TranscriptScreen pipe_ {ProgressStyle::PlainLines};

private:
    SteadyTime now_ {};
};

} // namespace

TEST_F(ProgressLineTest, APipeGetsOneLineAtTheStartAndOneAtTheEnd)
{
    ProgressLine line = On(pipe_);
    line.Begin(JobPhase::WritingImage, "Écriture de l'image");
    for (std::uint64_t done = 0; done <= 100; ++done) {
        Wait(100ms);
        line.ShowBytes(done, 100);
    }
    line.End("100 octets");
    EXPECT_EQ(pipe_.Text(), "! Écriture de l'image…\n! Écriture de l'image : 100 octets\n");
}

TEST_F(ProgressLineTest, ATerminalIsWrittenAtMostTwentyFiveTimesASecond)
{
    ProgressLine line = On(terminal_);
    line.Begin(JobPhase::WritingImage, "Lecture du dossier");
    for (int i = 0; i < 1000; ++i) { // one second
        Wait(1ms);
        line.ShowEntries(1);
    }
    EXPECT_EQ(terminal_.Lines().size(), 1U + 25U);
}

TEST_F(ProgressLineTest, TheLineIsGoneAtTheEnd)
{
    ProgressLine line = On(terminal_);
    line.Begin(JobPhase::WritingImage, "Lecture du dossier");
    Wait(50ms);
    line.ShowEntries(3);
    line.End("3 fichiers");
    EXPECT_EQ(terminal_.Text(), "~ Lecture du dossier…\n~ Lecture du dossier : 3 éléments\n~ \n");
}

TEST_F(ProgressLineTest, TheTimeLeftIsToldAfterOneSecond)
{
    ProgressLine line = On(terminal_);
    line.Begin(JobPhase::WritingImage, "Écriture");
    Wait(500ms);
    line.ShowBytes(50'000'000, 1'000'000'000);
    Wait(500ms);
    line.ShowBytes(100'000'000, 1'000'000'000);
    EXPECT_EQ(terminal_.Lines().at(1), "~ Écriture : 5 %   100,0 Mo/s");
    EXPECT_EQ(terminal_.Lines().at(2), "~ Écriture : 10 %   100,0 Mo/s   reste 9 s");
}

TEST_F(ProgressLineTest, NothingDoneYetShowsNoSpeed)
{
    ProgressLine line = On(terminal_);
    line.Begin(JobPhase::WritingImage, "Écriture");
    Wait(2s);
    line.ShowBytes(0, 1'000'000'000);
    EXPECT_EQ(terminal_.Lines().at(1), "~ Écriture : 0 %");
}

TEST_F(ProgressLineTest, AnEmptyWholeIsAllDone)
{
    ProgressLine line = On(terminal_);
    line.Begin(JobPhase::WritingImage, "Écriture");
    Wait(50ms);
    line.ShowBytes(0, 0);
    EXPECT_EQ(terminal_.Lines().at(1), "~ Écriture : 100 %");
}

TEST_F(ProgressLineTest, ABrokenPhaseSaysNothingInAPipe)
{
    ProgressLine line = On(pipe_);
    line.Begin(JobPhase::WritingImage, "Écriture");
    line.Clear();
    EXPECT_EQ(pipe_.Text(), "! Écriture…\n");
}

TEST_F(ProgressLineTest, NoTimeGivesNoSpeed)
{
    EXPECT_EQ(SpeedText(1000, 0ms), "");
    EXPECT_EQ(SpeedText(123'400'000, 1000ms), "123,4 Mo/s");
}

} // namespace velmora::terminal
