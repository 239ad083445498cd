// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/BurnChoices.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 kDataMode = 0;
constexpr qint16 kFileSystem = 1;
constexpr qint16 kSpeed = 2;
constexpr image::FileSystems kIso {.iso9660 = true, .joliet = false, .udf = false};
constexpr image::FileSystems kUdf {.iso9660 = false, .joliet = false, .udf = true};

class BurnChoicesTest : public testing::Test {
protected:
    BurnChoices Of(const BurnRequest& request) { return {request, u"Nom"_s, u"\\tmp"_s, state}; }
    BurnChoices For(std::string_view medium, std::optional<std::uint32_t> speed = {})
    {
        return Of({.content = {.medium = FindMedium(medium)}, .speed = speed});
    }
    QString FileSystemOf(std::string_view medium, image::FileSystems fileSystems)
    {
        return Of({.content = {.medium = FindMedium(medium), .fileSystems = fileSystems}})
            .Combo2(kFileSystem);
    }
    QString DataModeOf(std::optional<image::IsoLevel> level)
    {
        return Of({.content = {.medium = FindMedium("cd"), .fileSystems = kIso, .level = level}})
            .Combo2(kDataMode);
    }

    shell::ProgramState state;
};

} // namespace

TEST_F(BurnChoicesTest, EachDiscHasItsUsualFileSystem)
{
    EXPECT_EQ(For("bd").Combo2(kFileSystem), u"UDF"_s);
    EXPECT_EQ(For("bd-dl").Combo2(kFileSystem), u"UDF"_s);
    EXPECT_EQ(For("dvd").Combo2(kFileSystem), u"Joliet"_s);
    EXPECT_EQ(For("cd").Combo2(kFileSystem), u"Joliet"_s);
    EXPECT_EQ(FileSystemOf("cd", kIso), u"ISO 9660"_s);
    EXPECT_EQ(FileSystemOf("dvd", kUdf), u"UDF"_s);
}

TEST_F(BurnChoicesTest, TheLevelOfIso9660ChoosesTheDataModeThatStandsForIt)
{
    EXPECT_EQ(DataModeOf(image::IsoLevel::Level1), u"Mode 1"_s);
    EXPECT_EQ(DataModeOf(image::IsoLevel::Level2), u"Mode 2 / XA"_s);
    EXPECT_EQ(DataModeOf(std::nullopt), u"Mode 2 / XA"_s);
}

TEST_F(BurnChoicesTest, WithoutAWordTheSpeedIsTheFastest)
{
    const BurnChoices choices = For("cd");
    EXPECT_EQ(choices.Combo2(kSpeed), u"Maximum"_s);
    EXPECT_EQ(choices.Combo2ListIndex(kSpeed), 0);
    EXPECT_EQ(choices.Combo2ListCount(kSpeed), 9);
}

TEST_F(BurnChoicesTest, ASpeedIsFoundAtItsPlace)
{
    const BurnChoices choices = For("bd", 2);
    EXPECT_EQ(choices.Combo2(kSpeed), u"2x"_s);
    EXPECT_EQ(choices.Combo2ListIndex(kSpeed), 2);
    EXPECT_EQ(choices.Combo2ListCount(kSpeed), 4);
}

TEST_F(BurnChoicesTest, ASpeedThatIsUnusualIsPutBetweenTheOthers)
{
    const BurnChoices choices = For("dvd", 6);
    EXPECT_EQ(choices.Combo2(kSpeed), u"6x"_s);
    EXPECT_EQ(choices.Combo2ListIndex(kSpeed), 3); // behind Maximum, 16x and 8x
    EXPECT_EQ(choices.Combo2ListCount(kSpeed), 7);
    EXPECT_EQ(Of({.speed = 6}).Combo2(kSpeed), u"6x"_s);
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

TEST_F(BurnChoicesTest, AMediumSetsTypeAndRoom)
{
    struct Row {
        std::string_view medium;
        qint16 type;
        double capacity;
    };
    for (const Row& row : {Row {"bd", 18, 50e9},
             Row {"bd-dl", 18, 50e9},
             Row {"dvd", 6, 4.7e9},
             Row {"dvd-dl", 8, 8.5e9},
             Row {"cd", 2, 8e8}}) {
        ApplyMedium(FindMedium(row.medium), state);
        EXPECT_EQ(state.MediaTypeChoice, row.type);
        EXPECT_EQ(state.MediaCapacity, row.capacity);
    }
}

TEST_F(BurnChoicesTest, ADetectedDiscMayBeOfAnyType)
{
    state.DiscFormat = 1;
    ApplyMedium(nullptr, state);
    EXPECT_EQ(state.MediaTypeChoice, 0);
    EXPECT_EQ(state.DiscFormat, 0);
}

} // namespace velmora::terminal
