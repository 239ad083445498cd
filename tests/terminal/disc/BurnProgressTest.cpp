// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/BurnProgress.h"

#include "tests/terminal/TranscriptScreen.h"

#include <chrono>
#include <gtest/gtest.h>

namespace velmora::terminal {

using namespace std::chrono_literals;
using drive::WriteAction;

namespace {

constexpr qint64 kStart = 1000;
constexpr qint64 kCount = 100'000; // 204.8 MB

class BurnProgressTest : public testing::Test {
protected:
    BurnProgress On(TranscriptScreen& screen)
    {
        return {screen, [this] { return now_; }};
    }
    void Wait(std::chrono::milliseconds time) { now_ += time; }

    static drive::WriteProgress Written(qint64 sectors)
    {
        return {.action = WriteAction::WritingData,
            .startSector = kStart,
            .sectorCount = kCount,
            .lastWrittenSector = kStart + sectors,
            .bufferBytes = 1000,
            .bufferUsedBytes = 875};
    }

    TranscriptScreen terminal_ {ProgressStyle::OneLine};
    TranscriptScreen pipe_;

private:
    SteadyTime now_ {};
};

} // namespace

TEST_F(BurnProgressTest, TheLineHasPercentSpeedBufferAndTheTimeLeft)
{
    BurnProgress progress = On(terminal_);
    progress.Show(Written(0));
    Wait(4s);
    progress.Show(Written(25'000));
    EXPECT_EQ(terminal_.Lines().back(), "~ Gravure : 25 %   12,8 Mo/s   tampon 87 %   reste 12 s");
}

TEST_F(BurnProgressTest, ADriveWithoutAKnownBufferShowsNone)
{
    BurnProgress progress = On(terminal_);
    progress.Show(Written(0));
    Wait(4s);
    auto written = Written(50'000);
    written.bufferBytes = 0;
    progress.Show(written);
    EXPECT_EQ(terminal_.Lines().back(), "~ Gravure : 50 %   25,6 Mo/s   reste 4 s");
}

TEST_F(BurnProgressTest, OtherPhasesTellHowLongTheyLast)
{
    BurnProgress progress = On(terminal_);
    progress.Show({.action = WriteAction::CalibratingPower});
    EXPECT_EQ(terminal_.Lines().back(), "~ Réglage du laser : 0 s");
    progress.Show({.action = WriteAction::Finalization});
    Wait(65s);
    progress.Show({.action = WriteAction::Finalization});
    EXPECT_EQ(terminal_.Lines().back(), "~ Finalisation du disque : 1 min 05 s");
    progress.Show({.action = WriteAction::FormattingMedia});
    EXPECT_EQ(terminal_.Lines().back(), "~ Formatage du disque : 0 s");
}

TEST_F(BurnProgressTest, ATerminalIsWrittenAtMostTwentyFiveTimesASecond)
{
    BurnProgress progress = On(terminal_);
    for (int i = 0; i < 1000; ++i) {
        progress.Show(Written(i));
        Wait(1ms);
    }
    EXPECT_EQ(terminal_.Lines().size(), 25U);
}

TEST_F(BurnProgressTest, APipeGetsALineForEachTenth)
{
    BurnProgress progress = On(pipe_);
    progress.Show({.action = WriteAction::InitializingHardware});
    for (qint64 done = 0; done <= kCount; done += 1000) {
        progress.Show(Written(done));
        Wait(80ms);
    }
    progress.Show({.action = WriteAction::Finalization});
    ASSERT_EQ(pipe_.Lines().size(), 10U);
    EXPECT_EQ(pipe_.Lines()[4], "! Gravure : 50 %   25,6 Mo/s   tampon 87 %   reste 4 s");
    EXPECT_TRUE(pipe_.Lines().back().starts_with("! Gravure : 100 %"));
}

TEST_F(BurnProgressTest, TheLineIsGoneAtTheEndAndTheWholeTimeIsKnown)
{
    BurnProgress progress = On(terminal_);
    EXPECT_FALSE(progress.IsShowing());
    progress.Show({.action = WriteAction::ValidatingMedia});
    EXPECT_TRUE(progress.IsShowing());
    Wait(10s);
    progress.Show({.action = WriteAction::Completed});
    Wait(5s);
    progress.End();
    EXPECT_FALSE(progress.IsShowing());
    EXPECT_EQ(terminal_.Lines().back(), "~ ");
    EXPECT_EQ(progress.Duration(), 10s);
}

} // namespace velmora::terminal
