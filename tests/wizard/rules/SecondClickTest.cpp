// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/SecondClick.h"

#include "tests/support/FakeClock.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

TEST(SecondClickTest, ComesSoonAfterAChangeOfThePage)
{
    test::FakePump pump;
    test::FakeClock clock(pump);
    SecondClick click(clock, 0.5);
    EXPECT_FALSE(click.IsPossible()) << "no page has changed yet";
    click.OnPageChange();
    EXPECT_TRUE(click.IsPossible());
    clock.Pause(0.25);
    EXPECT_TRUE(click.IsPossible());
    clock.Pause(0.25);
    EXPECT_FALSE(click.IsPossible());
    click.OnPageChange();
    EXPECT_TRUE(click.IsPossible());
}

} // namespace velmora::wizard
