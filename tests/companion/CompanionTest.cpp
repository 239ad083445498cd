// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "companion/Companion.h"
#include "tests/companion/ProgramEnd.h"
#include "tests/support/WidgetApplication.h"

#include <gtest/gtest.h>

namespace velmora::companion {

class CompanionTest : public testing::Test {
protected:
    void Join()
    {
        companion.Offer(folder.Path());
        ASSERT_TRUE(program.Join(folder));
    }

    link::LinkFolder folder;
    int changes = 0;
    int ends = 0;
    Companion companion {{.onChange = [this] { ++changes; }, .onEnd = [this] { ++ends; }}};
    test::ProgramEnd program;
};

TEST_F(CompanionTest, TellsTheProgramOfTheStop)
{
    Join();
    EXPECT_FALSE(companion.IsStopAsked());
    companion.Press();
    EXPECT_TRUE(companion.IsStopAsked());
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(program.Hears("Undo\n"));
}

TEST_F(CompanionTest, AStopBeforeTheProgramJoinsIsFoundWhenItDoes)
{
    companion.Offer(folder.Path());
    companion.Press();
    EXPECT_FALSE(program.Join(folder)); // as the item isn't empty
    EXPECT_TRUE(companion.IsStopAsked());
}

TEST_F(CompanionTest, AnEmptyPokeClearsTheStopAndItGoesOn)
{
    Join();
    companion.Press();
    ASSERT_TRUE(program.Hears("Undo\n"));
    program.Say("\n");
    EXPECT_TRUE(test::Await([&] { return !companion.IsStopAsked(); }));
    companion.Press();
    EXPECT_TRUE(program.Hears("Undo\n"));
    EXPECT_EQ(ends, 0);
}

TEST_F(CompanionTest, QuitEndsIt)
{
    Join();
    program.Say("Quit\n");
    EXPECT_TRUE(test::Await([&] { return ends == 1; }));
}

TEST_F(CompanionTest, AnyOtherWordChangesNothing)
{
    Join();
    program.Say("quit\nUndo\n\n");
    EXPECT_TRUE(test::Await([&] { return changes == 1; })); // the empty one
    EXPECT_FALSE(companion.IsStopAsked());
    EXPECT_EQ(ends, 0);
}

TEST_F(CompanionTest, EndsWithTheProgram)
{
    Join();
    program.Leave();
    EXPECT_TRUE(test::Await([&] { return ends == 1; }));
}

TEST_F(CompanionTest, EndsWhenTheProgramHasNotJoinedInTime)
{
    companion.Offer(folder.Path());
    companion.EndUnlessJoined();
    EXPECT_EQ(ends, 1);
}

TEST_F(CompanionTest, StaysWhenTheProgramHasJoinedInTime)
{
    Join();
    companion.EndUnlessJoined();
    EXPECT_EQ(ends, 0);
}

} // namespace velmora::companion
