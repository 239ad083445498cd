// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/ProgressWords.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::writing {

using namespace Qt::StringLiterals;

TEST(ProgressWordsTest, ALineHasWhatIsKnown)
{
    const QLocale french(QLocale::French);
    RunFigures figures {.phase = RunPhase::Writing, .sectors = 1000};
    EXPECT_EQ(ProgressLine(figures, french), u"Gravure"_s);
    figures.sectorsPerSecond = 5000;
    EXPECT_EQ(ProgressLine(figures, french), u"Gravure, 10,2\u00A0Mo/s"_s);
    figures.secondsLeft = 65;
    EXPECT_EQ(
        ProgressLine(figures, french), u"Gravure, reste 1\u00A0min 05\u00A0s, 10,2\u00A0Mo/s"_s);
    figures.secondsLeft = 3720;
    EXPECT_TRUE(ProgressLine(figures, french).contains(u"reste 1\u00A0h 02\u00A0min"_s));
}

TEST(ProgressWordsTest, ASpeedIsInMillionsOfBytes)
{
    EXPECT_EQ(SpeedWords(5000, QLocale(QLocale::French)), u"10,2\u00A0Mo/s"_s);
    EXPECT_EQ(SpeedWords(0, QLocale(QLocale::French)), u"0,0\u00A0Mo/s"_s);
}

TEST(ProgressWordsTest, AStepWithoutAnEndSaysWhatItIsAndHasNoPercent)
{
    for (const RunPhase phase :
        {RunPhase::Preparing, RunPhase::Formatting, RunPhase::Calibrating, RunPhase::Finalizing}) {
        EXPECT_TRUE(IsWithoutEnd(phase));
        EXPECT_TRUE(ProgressLine({.phase = phase}).endsWith(u'…'));
        EXPECT_FALSE(PercentOf({.phase = phase, .sectors = 10, .writtenSectors = 10}));
    }
}

TEST(ProgressWordsTest, PercentIsOfThePhaseAndNeverRoundedUp)
{
    RunFigures figures {
        .phase = RunPhase::Writing, .sectors = 1000, .writtenSectors = 999, .comparedSectors = 10};
    EXPECT_EQ(PercentOf(figures), 99);
    figures.phase = RunPhase::Comparing;
    EXPECT_EQ(PercentOf(figures), 1);
    figures.phase = RunPhase::Idle;
    EXPECT_FALSE(PercentOf(figures));
}

} // namespace velmora::writing
