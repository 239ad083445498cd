// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/WayOut.h"

#include "shell/ProgramState.h"
#include "tests/support/FakeClock.h"
#include "tests/wizard/rules/TranscriptPages.h"
#include "tests/writing/TranscriptScreen.h"
#include "wizard/rules/Navigation.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

class WayOutTest : public testing::Test {
protected:
    std::string Click()
    {
        transcript.Clear();
        wayOut.CorvaneButton1();
        return transcript.Text();
    }

    test::Transcript transcript;
    test::TranscriptScreen burnPage {transcript};
    test::TranscriptPages pages {transcript};
    test::FakePump pump;
    test::FakeClock clock {pump};
    shell::ProgramState state;
    Navigation navigation {state, pages, burnPage};
    WayOut wayOut {navigation, clock, 0.5};
};

TEST_F(WayOutTest, OnTheRootPagesItLeadsOut)
{
    EXPECT_TRUE(wayOut.Look());
    EXPECT_EQ(Click(), "closed\n") << "at once: it has led there from the start";
}

TEST_F(WayOutTest, OnTheBurnPagesItLeadsBack)
{
    navigation.EnterBurnPages();
    EXPECT_FALSE(wayOut.Look());
    clock.Pause(1);
    EXPECT_EQ(Click(),
        "page 0 goes\npage 1 goes\npage 2 goes\ntab 1\nlblErase hidden\n"
        "root 0 comes\nroot 1 goes\nroot 2 goes\nroot 3 goes\n");
    EXPECT_TRUE(wayOut.Look());
}

TEST_F(WayOutTest, ADoubleClickOnTheWayBackDoesNotLeadOut)
{
    navigation.EnterBurnPages();
    wayOut.Look();
    clock.Pause(1);
    Click();
    wayOut.Look();
    clock.Pause(0.25);
    EXPECT_EQ(Click(), "");
    clock.Pause(0.25);
    EXPECT_EQ(Click(), "closed\n");
}

TEST_F(WayOutTest, ADoubleClickDuringTheEndOfABurnDoesNotLeadOut)
{
    navigation.EnterBurnPages();
    wayOut.Look();
    clock.Pause(1);
    state.BurnDone = true; // no page has changed, but the button leads out from now on
    EXPECT_TRUE(wayOut.Look());
    EXPECT_EQ(Click(), "");
    clock.Pause(0.5);
    EXPECT_EQ(Click(), "closed\n");
}

TEST_F(WayOutTest, AClickRightAfterAnyChangeOfThePageDoesNothing)
{
    wayOut.OnPageChange();
    EXPECT_EQ(Click(), "");
    clock.Pause(0.5);
    EXPECT_EQ(Click(), "closed\n");
}

TEST_F(WayOutTest, ALookThatFindsNothingNewHoldsNoClickUp)
{
    wayOut.Look();
    wayOut.Look();
    EXPECT_EQ(Click(), "closed\n");
}

} // namespace velmora::wizard
