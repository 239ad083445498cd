// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/RunFigures.h"

#include "tests/writing/VirtualRunBench.h"

#include <algorithm>

namespace velmora::test {

using writing::RunFigures;
using writing::RunPhase;

/// The figures that runs report, for whole burns on a virtual recorder.
class RunFiguresTest : public VirtualRunBench {
protected:
    RunFiguresTest()
    {
        screen.onFigures = [this](const RunFigures& figures) { told.push_back(figures); };
    }
    bool Has(RunPhase phase) const
    {
        return std::ranges::any_of(
            told, [&](const RunFigures& figures) { return figures.phase == phase; });
    }

    std::vector<RunFigures> told;
};

TEST_F(RunFiguresTest, ABurnGoesThroughItsPhasesAndEndsIdle)
{
    Burn();
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.front().phase, RunPhase::Working);
    EXPECT_EQ(told.front().sectors, 0);
    EXPECT_TRUE(Has(RunPhase::Calibrating));
    EXPECT_TRUE(Has(RunPhase::Writing));
    EXPECT_TRUE(Has(RunPhase::Finalizing));
    EXPECT_TRUE(Has(RunPhase::Comparing));
    const RunFigures& last = told.back();
    EXPECT_EQ(last.phase, RunPhase::Idle);
    EXPECT_GT(last.sectors, 0);
    EXPECT_EQ(last.writtenSectors, last.sectors);
    EXPECT_EQ(last.comparedSectors, last.sectors);
    EXPECT_EQ(last.firstSector, 0);
    EXPECT_EQ(last.disc, u"CD-R"_s);
    EXPECT_EQ(last.family, drive::DiscFamily::Cd);
    EXPECT_GT(last.freeSectors, last.sectors);
}

TEST_F(RunFiguresTest, AFailedWriteKeepsWhatWasWritten)
{
    Plan(virtualdrive::FaultKind::MediumError, 1000);
    Burn();
    const RunFigures& last = told.back();
    EXPECT_EQ(last.phase, RunPhase::Idle);
    EXPECT_LE(last.writtenSectors, 1000);
    EXPECT_GT(last.sectors, 1000);
    EXPECT_EQ(last.comparedSectors, 0);
}

TEST_F(RunFiguresTest, ASecondRunBeginsWithNothing)
{
    Burn();
    told.clear();
    Insert(u"cd-r");
    Burn();
    EXPECT_EQ(told.front().phase, RunPhase::Working);
    EXPECT_EQ(told.front().writtenSectors, 0);
}

TEST_F(RunFiguresTest, AnImageFileTouchesNoDisc)
{
    SaveIso("a.iso");
    for (const RunFigures& figures : told) {
        EXPECT_TRUE(figures.phase == RunPhase::Working || figures.phase == RunPhase::Idle);
    }
    EXPECT_EQ(told.back().phase, RunPhase::Idle);
}

} // namespace velmora::test
