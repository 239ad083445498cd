// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/OneTaskAtATime.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace velmora::wizard {

TEST(OneTaskAtATimeTest, ATaskThatStartsInsideAnotherDoesNothing)
{
    OneTaskAtATime tasks;
    int runs = 0;
    tasks.Run([&] {
        ++runs;
        EXPECT_TRUE(tasks.IsRunning());
        tasks.Run([&] { ++runs; });
    });
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(tasks.IsRunning());
    tasks.Run([&] { ++runs; });
    EXPECT_EQ(runs, 2);
}

TEST(OneTaskAtATimeTest, TheEndIsToldAfterAFailureToo)
{
    OneTaskAtATime tasks;
    int ends = 0;
    tasks.OnEnd([&] {
        ++ends;
        EXPECT_FALSE(tasks.IsRunning());
    });
    tasks.Run([] {});
    EXPECT_THROW(tasks.Run([] { throw std::runtime_error("failed"); }), std::runtime_error);
    EXPECT_EQ(ends, 2);
}

} // namespace velmora::wizard
