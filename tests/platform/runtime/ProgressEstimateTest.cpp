// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/ProgressEstimate.h"

#include <gtest/gtest.h>

namespace velmora::runtime {

class ProgressEstimateTest : public testing::Test {
protected:
    void Reach(double at, qint64 done, qint64 total = 1000)
    {
        now = at;
        estimate.Reach(done, total);
    }

    double now = 100;
    ProgressEstimate estimate {[this] { return now; }};
};

TEST_F(ProgressEstimateTest, NothingIsSaidBeforeAnythingWasDone)
{
    Reach(100, 0);
    EXPECT_FALSE(estimate.PerSecond());
    Reach(105, 0);
    EXPECT_FALSE(estimate.PerSecond());
    EXPECT_FALSE(estimate.SecondsLeft());
}

TEST_F(ProgressEstimateTest, AnEvenSpeedGivesTheTimeLeft)
{
    Reach(110, 100);
    EXPECT_DOUBLE_EQ(estimate.PerSecond().value_or(0), 10);
    EXPECT_DOUBLE_EQ(estimate.SecondsLeft().value_or(0), 90);
}

TEST_F(ProgressEstimateTest, ASpeedIsKnownSoonerThanATime)
{
    Reach(100.4, 4);
    EXPECT_NEAR(estimate.PerSecond().value_or(0), 10, 1e-9);
    EXPECT_FALSE(estimate.SecondsLeft());
}

TEST_F(ProgressEstimateTest, OnlyTheLastHalfMinuteCounts)
{
    for (int second = 1; second <= 100; ++second) {
        Reach(100 + second, second);
    }
    for (int second = 1; second <= 40; ++second) {
        Reach(200 + second, 100 + 10 * second);
    }
    EXPECT_NEAR(estimate.PerSecond().value_or(0), 10, 1e-9);
    EXPECT_NEAR(estimate.SecondsLeft().value_or(0), 50, 1e-9);
}

TEST_F(ProgressEstimateTest, AStandstillMakesTheTimeLeftLonger)
{
    Reach(110, 100);
    Reach(120, 100);
    EXPECT_DOUBLE_EQ(estimate.PerSecond().value_or(0), 5);
    for (int second = 21; second <= 60; ++second) {
        Reach(100 + second, 100);
    }
    EXPECT_FALSE(estimate.SecondsLeft()) << "nobody knows when it goes on";
}

TEST_F(ProgressEstimateTest, AnotherPieceOfWorkIsMeasuredAnew)
{
    Reach(110, 100);
    estimate.Begin();
    EXPECT_FALSE(estimate.PerSecond());
    Reach(112, 100);
    EXPECT_DOUBLE_EQ(estimate.PerSecond().value_or(0), 50);
    EXPECT_DOUBLE_EQ(estimate.Elapsed(), 2);
}

} // namespace velmora::runtime
