// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/SpeedProfile.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

TEST(SpeedProfileTest, AStretchHasTheSpeedOverAllOfIt)
{
    SpeedProfile profile;
    profile.Reach(0, 6000, 0);
    profile.Reach(50, 6000, 1); // half a stretch
    EXPECT_TRUE(profile.Points().empty());
    profile.Reach(100, 6000, 4);
    ASSERT_EQ(profile.Points().size(), 1U);
    EXPECT_DOUBLE_EQ(profile.Points().front().sectorsPerSecond, 25);
    EXPECT_DOUBLE_EQ(profile.Points().front().share, 100.0 / 6000);
}

TEST(SpeedProfileTest, HoweverLongItIsItHasFewPoints)
{
    SpeedProfile profile;
    for (int done = 0; done <= 100'000; ++done) {
        profile.Reach(done, 100'000, done / 1000.0);
    }
    EXPECT_LE(profile.Points().size(), static_cast<std::size_t>(SpeedProfile::kStretches));
    EXPECT_DOUBLE_EQ(profile.Points().back().share, 1);
    EXPECT_NEAR(profile.Highest(), 1000, 1e-6);
}

TEST(SpeedProfileTest, AStretchInNoTimeHasNoSpeed)
{
    SpeedProfile profile;
    profile.Reach(1000, 1000, 0);
    EXPECT_TRUE(profile.Points().empty());
    EXPECT_DOUBLE_EQ(profile.Highest(), 0);
}

TEST(SpeedProfileTest, AnotherRecordingBeginsAnew)
{
    SpeedProfile profile;
    profile.Reach(1000, 1000, 10);
    profile.Reach(0, 2000, 0);
    EXPECT_TRUE(profile.Points().empty());
    profile.Reach(2000, 2000, 10);
    EXPECT_DOUBLE_EQ(profile.Points().front().sectorsPerSecond, 200);
}

} // namespace velmora::wizard
