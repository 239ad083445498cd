// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/BurnChoices.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 kFileSystem = 1;
constexpr qint16 kSpeed = 2;

class BurnChoicesTest : public testing::Test {
protected:
    BurnChoices Of(const BurnRequest& request) { return {request, u"Nom"_s, u"\\tmp"_s, state}; }
    QString FileSystemOf(DiscChoice disc, std::optional<FileSystemChoice> fileSystem = {})
    {
        return Of({.disc = disc, .fileSystem = fileSystem}).Combo2(kFileSystem);
    }

    shell::ProgramState state;
};

} // namespace

TEST_F(BurnChoicesTest, EachDiscHasItsUsualFileSystem)
{
    EXPECT_EQ(FileSystemOf(DiscChoice::BluRay), u"UDF"_s);
    EXPECT_EQ(FileSystemOf(DiscChoice::Dvd), u"Joliet"_s);
    EXPECT_EQ(FileSystemOf(DiscChoice::Cd), u"Joliet"_s);
    EXPECT_EQ(FileSystemOf(DiscChoice::Cd, FileSystemChoice::Iso9660), u"ISO 9660"_s);
    EXPECT_EQ(FileSystemOf(DiscChoice::Dvd, FileSystemChoice::Udf), u"UDF"_s);
}

TEST_F(BurnChoicesTest, WithoutAWordTheSpeedIsTheFastest)
{
    const BurnChoices choices = Of({.disc = DiscChoice::Cd});
    EXPECT_EQ(choices.Combo2(kSpeed), u"Maximum"_s);
    EXPECT_EQ(choices.Combo2ListIndex(kSpeed), 0);
    EXPECT_EQ(choices.Combo2ListCount(kSpeed), 9);
}

TEST_F(BurnChoicesTest, ASpeedIsFoundAtItsPlace)
{
    const BurnChoices choices = Of({.disc = DiscChoice::BluRay, .speed = 2});
    EXPECT_EQ(choices.Combo2(kSpeed), u"2x"_s);
    EXPECT_EQ(choices.Combo2ListIndex(kSpeed), 2);
    EXPECT_EQ(choices.Combo2ListCount(kSpeed), 4);
}

TEST_F(BurnChoicesTest, ASpeedThatIsUnusualIsPutBetweenTheOthers)
{
    const BurnChoices choices = Of({.disc = DiscChoice::Dvd, .speed = 6});
    EXPECT_EQ(choices.Combo2(kSpeed), u"6x"_s);
    EXPECT_EQ(choices.Combo2ListIndex(kSpeed), 3); // behind Maximum, 16x and 8x
    EXPECT_EQ(choices.Combo2ListCount(kSpeed), 7);
    EXPECT_EQ(Of({.disc = DiscChoice::Detected, .speed = 6}).Combo2(kSpeed), u"6x"_s);
}

TEST_F(BurnChoicesTest, OnlyAWishClosesTheDisc)
{
    EXPECT_FALSE(Of({}).MultiSession(2));
    EXPECT_TRUE(Of({}).MultiSession(0));
    EXPECT_TRUE(Of({.closesDisc = true}).MultiSession(2));
    EXPECT_FALSE(Of({.closesDisc = true}).MultiSession(0));
}

TEST_F(BurnChoicesTest, TheRecorderIsThatOfTheState)
{
    state.SelectedRecorder = 3;
    EXPECT_EQ(Of({}).Combo1ListIndex(), 3);
}

TEST_F(BurnChoicesTest, AChoiceOfDiscSetsTypeAndRoom)
{
    struct Row {
        DiscChoice choice;
        qint16 type;
        double capacity;
    };
    for (const Row& row : {Row {DiscChoice::BluRay, 18, 50e9},
             Row {DiscChoice::Dvd, 6, 4.7e9},
             Row {DiscChoice::DvdDualLayer, 8, 8.5e9},
             Row {DiscChoice::Cd, 2, 8e8}}) {
        ApplyDiscChoice(row.choice, state);
        EXPECT_EQ(state.MediaTypeChoice, row.type);
        EXPECT_EQ(state.MediaCapacity, row.capacity);
    }
}

TEST_F(BurnChoicesTest, ADetectedDiscMayBeOfAnyType)
{
    state.DiscFormat = 1;
    ApplyDiscChoice(DiscChoice::Detected, state);
    EXPECT_EQ(state.MediaTypeChoice, 0);
    EXPECT_EQ(state.DiscFormat, 0);
}

} // namespace velmora::terminal
