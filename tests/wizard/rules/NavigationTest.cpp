// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/Navigation.h"

#include "shell/ProgramState.h"
#include "tests/wizard/rules/TranscriptPages.h"
#include "tests/writing/TranscriptScreen.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

namespace {

const std::string kRoot1 = "lblErase hidden\nroot 0 comes\nroot 1 goes\nroot 2 goes\nroot 3 goes\n";
const std::string kRoot2 = "lblErase hidden\nroot 0 goes\nroot 1 goes\nroot 2 goes\nroot 3 comes\n";
const std::string kReset = "page 0 goes\npage 1 goes\npage 2 goes\n";
const std::string kPreparation
    = "Corvane7ProgressBar1 hidden\nBurnButton(0) shown\nBurnButton(1) shown\n"
      "BurnButton(2) hidden\n"
      "Label14 \"Choisissez de créer une image disque Iso ou de graver un disque.\"\n"
      "log emptied, \"\"\n";

} // namespace

class NavigationTest : public testing::Test {
protected:
    void EnterOptions()
    {
        navigation.EnterBurnPages();
        transcript.Clear();
    }
    void EnterList()
    {
        EnterOptions();
        navigation.NextButton();
        transcript.Clear();
    }
    void EnterBurn()
    {
        EnterOptions();
        navigation.CorvSuivant();
        transcript.Clear();
    }

    test::Transcript transcript;
    test::TranscriptScreen burnPage {transcript};
    test::TranscriptPages pages {transcript};
    shell::ProgramState state;
    Navigation navigation {state, pages, burnPage};
};

TEST_F(NavigationTest, EachTabBringsItsRootPage)
{
    navigation.Setselectedtab(Tab::Options);
    EXPECT_EQ(transcript.Text(), "tab 2\n" + kRoot2);
    transcript.Clear();
    navigation.Setselectedtab(Tab::DataDisc);
    EXPECT_EQ(transcript.Text(), "tab 1\n" + kRoot1);
}

TEST_F(NavigationTest, SettingTheTabItHasBringsThePageBackToo)
{
    navigation.Setselectedtab(Tab::DataDisc);
    EXPECT_EQ(transcript.Text(), "tab 1\n" + kRoot1);
}

TEST_F(NavigationTest, NextGoesRoundTheTabs)
{
    navigation.NextButton();
    EXPECT_EQ(transcript.Text(), "tab 2\n" + kRoot2);
    transcript.Clear();
    navigation.NextButton();
    EXPECT_EQ(transcript.Text(), "tab 1\n" + kRoot1);
}

TEST_F(NavigationTest, PreviousGoesRoundTheTabs)
{
    navigation.PreviousButton();
    EXPECT_EQ(transcript.Text(), "tab 2\n" + kRoot2);
    transcript.Clear();
    navigation.PreviousButton();
    EXPECT_EQ(transcript.Text(), "tab 1\n" + kRoot1);
}

TEST_F(NavigationTest, TheRootPagesLeaveBurnPagesWhereTheyAre)
{
    navigation.Setselectedtab(Tab::Options); // as after an ISO image was burned
    EXPECT_EQ(transcript.Text().find("page"), std::string::npos);
}

TEST_F(NavigationTest, TheRootPagesEndWithTheWindow)
{
    navigation.CorvaneButton1();
    EXPECT_EQ(transcript.Text(), "closed\n");
    navigation.Setselectedtab(Tab::Options);
    transcript.Clear();
    navigation.CorvaneButton1();
    EXPECT_EQ(transcript.Text(), "closed\n");
}

TEST_F(NavigationTest, TheBurnPagesOpenOnTheOptions)
{
    navigation.EnterBurnPages();
    EXPECT_EQ(transcript.Text(), "root 0 goes\npage 0 comes\n");
    EXPECT_EQ(state.WizardStage, shell::WizardStage::BurnPages);
    EXPECT_EQ(state.BurnPage, shell::WizardPage::Options);
}

TEST_F(NavigationTest, TheTabsAreLockedInTheBurnPages)
{
    EnterOptions();
    navigation.Setselectedtab(Tab::Options);
    EXPECT_EQ(transcript.Text(), "tab 2\ntab 1\n");
    EXPECT_EQ(navigation.selectedtab(), Tab::DataDisc);
    EXPECT_EQ(state.WizardStage, shell::WizardStage::BurnPages);
    transcript.Clear();
    navigation.Setselectedtab(Tab::Options);
    EXPECT_EQ(transcript.Text(), "tab 2\ntab 1\n") << "locked a second time too";
}

TEST_F(NavigationTest, TheSelectedTabDoesNothingInTheBurnPages)
{
    EnterOptions();
    navigation.Setselectedtab(Tab::DataDisc);
    EXPECT_EQ(transcript.Text(), "tab 1\n");
}

TEST_F(NavigationTest, SuivantSkipsTheList)
{
    EnterOptions();
    navigation.CorvSuivant();
    EXPECT_EQ(transcript.Text(), "page 0 goes\npage 2 comes\n" + kPreparation);
    EXPECT_EQ(state.BurnPage, shell::WizardPage::Burn);
}

TEST_F(NavigationTest, TheListOpensAndClosesOverTheOptions)
{
    EnterOptions();
    navigation.CorvFichiers();
    EXPECT_EQ(transcript.Text(), "page 1 comes\nfocus CorvFermer\n");
    EXPECT_EQ(state.BurnPage, shell::WizardPage::Options);
    transcript.Clear();
    navigation.CorvFermer();
    EXPECT_EQ(transcript.Text(), "page 1 goes\n");
    EXPECT_EQ(state.BurnPage, shell::WizardPage::Options);
}

TEST_F(NavigationTest, NextGoesFromTheOptionsToTheList)
{
    EnterOptions();
    navigation.NextButton();
    EXPECT_EQ(transcript.Text(), "page 0 goes\npage 1 comes\nfocus DiscName\n");
    EXPECT_EQ(state.BurnPage, shell::WizardPage::List);
}

TEST_F(NavigationTest, PreviousBeepsOnTheOptions)
{
    EnterOptions();
    navigation.PreviousButton();
    EXPECT_EQ(transcript.Text(), "beep\n");
    EXPECT_EQ(state.BurnPage, shell::WizardPage::Options);
    EXPECT_EQ(state.WizardStage, shell::WizardStage::BurnPages);
}

TEST_F(NavigationTest, NextGoesFromTheListToTheBurn)
{
    EnterList();
    navigation.NextButton();
    EXPECT_EQ(transcript.Text(), "page 1 goes\npage 2 comes\n" + kPreparation);
    EXPECT_EQ(state.BurnPage, shell::WizardPage::Burn);
}

TEST_F(NavigationTest, PreviousGoesFromTheListToTheOptions)
{
    EnterList();
    navigation.PreviousButton();
    EXPECT_EQ(transcript.Text(), "page 1 goes\npage 0 comes\n");
    EXPECT_EQ(state.BurnPage, shell::WizardPage::Options);
}

TEST_F(NavigationTest, ClosingTheListLeavesABlankPlaceThatNextAndPreviousLeave)
{
    EnterList();
    navigation.CorvFermer();
    EXPECT_EQ(transcript.Text(), "page 1 goes\n");
    EXPECT_EQ(state.BurnPage, shell::WizardPage::List);
    transcript.Clear();
    navigation.NextButton();
    EXPECT_EQ(transcript.Text(), "page 1 goes\npage 2 comes\n" + kPreparation);

    EnterList();
    navigation.CorvFermer();
    transcript.Clear();
    navigation.PreviousButton();
    EXPECT_EQ(transcript.Text(), "page 1 goes\npage 0 comes\n");
}

TEST_F(NavigationTest, NextBeepsOnTheBurnPage)
{
    EnterBurn();
    navigation.NextButton();
    EXPECT_EQ(transcript.Text(), "beep\n");
    EXPECT_EQ(state.BurnPage, shell::WizardPage::Burn);
}

TEST_F(NavigationTest, PreviousGoesFromTheBurnToTheList)
{
    EnterBurn();
    navigation.PreviousButton();
    EXPECT_EQ(transcript.Text(), "page 2 goes\npage 1 comes\n");
    EXPECT_EQ(state.BurnPage, shell::WizardPage::List);
}

TEST_F(NavigationTest, TheWayBackLeadsToTheRootFromEveryBurnPage)
{
    EnterOptions();
    navigation.CorvaneButton1();
    EXPECT_EQ(transcript.Text(), kReset + "tab 1\n" + kRoot1);
    EXPECT_EQ(state.WizardStage, shell::WizardStage::RootPages);

    EnterList();
    navigation.CorvaneButton1();
    EXPECT_EQ(transcript.Text(), kReset + "tab 1\n" + kRoot1);

    EnterBurn();
    EXPECT_FALSE(navigation.IsAtWayOut());
    navigation.CorvaneButton1();
    EXPECT_EQ(transcript.Text(), kReset + "tab 1\n" + kRoot1);
    EXPECT_TRUE(navigation.IsAtWayOut());
}

TEST_F(NavigationTest, AfterADiscWasBurnedTheWayBackClosesTheWindow)
{
    EnterBurn();
    state.BurnDone = true;
    EXPECT_TRUE(navigation.IsAtWayOut());
    navigation.CorvaneButton1();
    EXPECT_EQ(transcript.Text(), "closed\n");
    EXPECT_EQ(state.WizardStage, shell::WizardStage::BurnPages);
}

TEST_F(NavigationTest, ResetContainerTakesEveryBurnPageAway)
{
    navigation.ResetContainer();
    EXPECT_EQ(transcript.Text(), kReset);
}

} // namespace velmora::wizard
