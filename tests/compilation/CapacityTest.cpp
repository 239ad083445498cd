// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/CapacityAccount.h"
#include "shell/ProgramState.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/RecordedMessages.h"

#include <gtest/gtest.h>

#include <array>

using namespace velmora;
using namespace Qt::StringLiterals;
using test::ErrorNumberOf;

namespace {

class CapacityTest : public testing::Test {
protected:
    qint16 BarFor(double capacityBytes, double totalBytes)
    {
        state.MediaCapacity = capacityBytes;
        state.TotalSizeBytes = 0;
        account.CalcSpaceOnMedia(totalBytes);
        return account.BarValue();
    }

    shell::ProgramState state;
    compilation::CapacityAccount account {state, QLocale::c()};
    test::RecordedMessages messages;
};

} // namespace

TEST_F(CapacityTest, AtTheStartTheLabelsShowTheirDesign)
{
    EXPECT_EQ(account.Label10(), u"800 Mo"_s);
    EXPECT_EQ(account.Label11(), u"0 Mo"_s);
    EXPECT_EQ(account.BarValue(), 0);
    EXPECT_EQ(compilation::CapacityAccount::kBarLimit, 91);
}

TEST_F(CapacityTest, AFullDiscStandsAtNineTenths)
{
    EXPECT_EQ(BarFor(640000000, 640000000), 90);
    EXPECT_EQ(BarFor(4700000000, 4700000000), 90);
    EXPECT_EQ(BarFor(640000000, 320000000), 45);
}

TEST_F(CapacityTest, TheBarEndsAtOneHundred)
{
    EXPECT_EQ(BarFor(900000000, 1000000000), 100);
    EXPECT_EQ(BarFor(640000000, 6400000000), 100);
    EXPECT_EQ(BarFor(900000000, 990000000), 99);
}

TEST_F(CapacityTest, HalfPercentsGoToTheEvenNeighbour)
{
    EXPECT_EQ(BarFor(9000, 50), 0); // 0.5 percent of the bar
    EXPECT_EQ(BarFor(9000, 150), 2);
    EXPECT_EQ(BarFor(9000, 250), 2);
}

TEST_F(CapacityTest, AnAmountIsAddedToTheSumAndANegativeOneTakenOff)
{
    account.CalcSpaceOnMedia(1500000);
    account.CalcSpaceOnMedia(2500000);
    EXPECT_EQ(state.TotalSizeBytes, 4000000);
    EXPECT_EQ(account.Label11(), u"4 Mo"_s);
    account.CalcSpaceOnMedia(-2500000);
    account.CalcSpaceOnMedia(-1500000);
    EXPECT_EQ(state.TotalSizeBytes, 0);
    EXPECT_EQ(account.Label11(), u"1 Ko"_s);
}

TEST_F(CapacityTest, AnAmountOfNothingOnlyRefreshesWhatIsShown)
{
    state.MediaCapacity = 640000000;
    state.TotalSizeBytes = 100;
    account.CalcSpaceOnMedia(0);
    EXPECT_EQ(state.TotalSizeBytes, 100);
    EXPECT_EQ(account.BarValue(), 0);
    EXPECT_EQ(account.Label11(), u"1 Ko"_s);
}

TEST_F(CapacityTest, ResettingLeavesTheSumsTextUntilTheNextAmount)
{
    state.MediaCapacity = 640000000;
    account.CalcSpaceOnMedia(320000000);
    account.ResetSpaceUsedOnMedia();
    EXPECT_EQ(state.TotalSizeBytes, 0);
    EXPECT_EQ(account.BarValue(), 0);
    EXPECT_EQ(account.Label11(), u"320 Mo"_s);
}

TEST_F(CapacityTest, ADiscWithoutRoomIsAnErrorAfterTheSumHasChanged)
{
    state.MediaCapacity = 640000000;
    account.CalcSpaceOnMedia(320000000);
    state.MediaCapacity = 0;
    EXPECT_EQ(ErrorNumberOf([&] { account.CalcSpaceOnMedia(1); }), 11);
    EXPECT_EQ(state.TotalSizeBytes, 320000001);
    EXPECT_EQ(account.BarValue(), 45);
    EXPECT_EQ(account.Label11(), u"320 Mo"_s);
}

TEST_F(CapacityTest, ADiscWithoutRoomAndNothingToBurnIsAnOverflow)
{
    state.MediaCapacity = 0;
    EXPECT_EQ(ErrorNumberOf([&] { account.CalcSpaceOnMedia(0); }), 6);
}

TEST_F(CapacityTest, ANewCapacityIsShownAndTheBarFollows)
{
    account.CalcSpaceOnMedia(320000000);
    struct Row {
        double capacity;
        QString label10;
        qint16 bar;
    };
    const std::array rows {
        Row {640000000, u"640 Mo"_s, 45},
        Row {700000000, u"700 Mo"_s, 41},
        Row {800000000, u"800 Mo"_s, 36},
        Row {4700000000, u"4.70 Go"_s, 6},
        Row {8500000000, u"8.50 Go"_s, 3},
        Row {25000000000, u"25.00 Go"_s, 1},
        Row {50000000000, u"50.00 Go"_s, 1},
    };
    for (const Row& row : rows) {
        account.ChangeMediaCapacity(row.capacity);
        EXPECT_EQ(state.MediaCapacity, row.capacity);
        EXPECT_EQ(account.Label10(), row.label10);
        EXPECT_EQ(account.BarValue(), row.bar) << row.capacity;
        EXPECT_EQ(state.TotalSizeBytes, 320000000);
    }
}

TEST_F(CapacityTest, NoNewCapacityOnlyRefreshesWhatIsShown)
{
    account.ChangeMediaCapacity(700000000);
    account.ChangeMediaCapacity(std::nullopt);
    EXPECT_EQ(state.MediaCapacity, 700000000);
    EXPECT_EQ(account.Label10(), u"700 Mo"_s);
}

TEST_F(CapacityTest, ADetectedDiscWithoutRoomStillShowsItsCapacity)
{
    EXPECT_EQ(ErrorNumberOf([&] { account.ChangeMediaCapacity(0); }), 6);
    EXPECT_EQ(account.Label10(), u"0 Mo"_s);
}

TEST_F(CapacityTest, LabelsFollowTheLocale)
{
    compilation::CapacityAccount french(state, QLocale(QLocale::French, QLocale::France));
    french.CalcSpaceOnMedia(1500000000);
    french.ChangeMediaCapacity(4700000000);
    EXPECT_EQ(french.Label10(), u"4,70 Go"_s);
    EXPECT_EQ(french.Label11(), u"1,50 Go"_s);
}

TEST_F(CapacityTest, TheListenerHearsOfEveryChange)
{
    QString heard;
    account.OnChange([&] { heard = account.Label11(); });
    account.CalcSpaceOnMedia(3000);
    EXPECT_EQ(heard, u"3 Ko"_s);
}

TEST_F(CapacityTest, ACompilationThatExactlyFitsIsAccepted)
{
    state.MediaCapacity = 4700000000;
    state.TotalSizeBytes = 4700000000;
    state.MediaTypeChoice = shell::DiscTypeChoice::DvdPlusR;
    EXPECT_TRUE(account.CheckThatItFits(messages));
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::DvdPlusR);
}

TEST_F(CapacityTest, OneByteTooManyIsToldInBinaryUnitsAndDropsTheChoice)
{
    state.MediaCapacity = 4700000000;
    state.TotalSizeBytes = 4700000001;
    state.MediaTypeChoice = shell::DiscTypeChoice::DvdPlusR;
    EXPECT_FALSE(account.CheckThatItFits(messages));
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_EQ(messages.shown[0].text,
        u"Le disque inséré ne dispose pas de suffisamment de place pour graver ce répertoire."
        u"\r\n\r\nVeuillez insérer un disque de capacité supérieure à 4482 Mo "_s);
    EXPECT_EQ(messages.shown[0].style, 48);
    EXPECT_EQ(messages.shown[0].title, u"Velmora"_s);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::Failed);
}

TEST_F(CapacityTest, TheFigureOfTheMessageIsCutNotRounded)
{
    state.MediaCapacity = 640000000;
    state.TotalSizeBytes = 750000000;
    account.CheckThatItFits(messages);
    ASSERT_EQ(messages.shown.size(), 1);
    EXPECT_TRUE(messages.shown[0].text.endsWith(u"supérieure à 715 Mo "_s));
}
