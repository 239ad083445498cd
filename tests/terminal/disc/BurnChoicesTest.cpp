// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/BurnChoices.h"

#include "tests/support/QtPrinters.h"
#include "tests/terminal/MediumOfOption.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

using writing::DataMode;
using writing::FileSystemOption;
using writing::SessionOption;
using writing::SpeedSelection;

constexpr image::FileSystems kIso {.iso9660 = true, .joliet = false, .udf = false};
constexpr image::FileSystems kUdf {.iso9660 = false, .joliet = false, .udf = true};

class BurnChoicesTest : public testing::Test {
protected:
    BurnChoices Of(const BurnRequest& request)
    {
        return {request, u"Nom"_s, text::ProgramPath(u"\\tmp"_s), state};
    }
    BurnChoices For(std::string_view medium, std::optional<std::uint32_t> speed = {})
    {
        return Of({.content = {.medium = MediumOfOption(medium)}, .speed = speed});
    }
    FileSystemOption FileSystemOf(std::string_view medium, image::FileSystems fileSystems)
    {
        return Of({.content = {.medium = MediumOfOption(medium), .fileSystems = fileSystems}})
            .FileSystem();
    }
    DataMode DataModeOf(std::optional<image::IsoLevel> level)
    {
        return Of(
            {.content = {.medium = MediumOfOption("cd"), .fileSystems = kIso, .level = level}})
            .Mode();
    }

    static void ExpectSpeed(
        const SpeedSelection& speed, const QString& text, qint16 index, qint16 count)
    {
        EXPECT_EQ(speed.text, text);
        EXPECT_EQ(speed.listIndex, index);
        EXPECT_EQ(speed.listCount, count);
    }

    shell::ProgramState state;
};

} // namespace

TEST_F(BurnChoicesTest, AttributesAreKeptOnlyOnDemand)
{
    EXPECT_FALSE(For("cd").KeepsAttributes());
    EXPECT_TRUE(Of({.content = {.rights = image::Rights::OfSource}}).KeepsAttributes());
}

TEST_F(BurnChoicesTest, EachDiscHasItsUsualFileSystem)
{
    EXPECT_EQ(For("bd").FileSystem(), FileSystemOption::Udf);
    EXPECT_EQ(For("bd-dl").FileSystem(), FileSystemOption::Udf);
    EXPECT_EQ(For("dvd").FileSystem(), FileSystemOption::Joliet);
    EXPECT_EQ(For("cd").FileSystem(), FileSystemOption::Joliet);
    EXPECT_EQ(FileSystemOf("cd", kIso), FileSystemOption::Iso9660);
    EXPECT_EQ(FileSystemOf("dvd", kUdf), FileSystemOption::Udf);
}

TEST_F(BurnChoicesTest, TheLevelOfIso9660ChoosesTheDataModeThatStandsForIt)
{
    EXPECT_EQ(DataModeOf(image::IsoLevel::Level1), DataMode::Mode1);
    EXPECT_EQ(DataModeOf(image::IsoLevel::Level2), DataMode::Mode2Xa);
    EXPECT_EQ(DataModeOf(std::nullopt), DataMode::Mode2Xa);
}

TEST_F(BurnChoicesTest, WithoutAWordTheSpeedIsTheFastest)
{
    const BurnChoices choices = For("cd");
    ExpectSpeed(choices.Speed(), u"Maximum"_s, 0, 9);
}

TEST_F(BurnChoicesTest, ASpeedIsFoundAtItsPlace)
{
    const BurnChoices choices = For("bd", 2);
    ExpectSpeed(choices.Speed(), u"2x"_s, 2, 4);
}

TEST_F(BurnChoicesTest, ASpeedThatIsUnusualIsPutBetweenTheOthers)
{
    const BurnChoices choices = For("dvd", 6);
    ExpectSpeed(choices.Speed(), u"6x"_s, 3, 7); // after Maximum, 16x and 8x
    EXPECT_EQ(Of({.speed = 6}).Speed().text, u"6x"_s);
}

TEST_F(BurnChoicesTest, OnlyAWishClosesTheDisc)
{
    EXPECT_EQ(Of({}).Session(), SessionOption::StartMultisession);
    EXPECT_EQ(Of({.closesDisc = true}).Session(), SessionOption::CloseDisc);
}

TEST_F(BurnChoicesTest, TheRecorderIsThatOfTheState)
{
    state.SelectedRecorder = 3;
    EXPECT_EQ(Of({}).RecorderPlace(), 3);
}

TEST_F(BurnChoicesTest, AMediumSetsTypeAndRoom)
{
    struct Row {
        std::string_view medium;
        shell::DiscTypeChoice type;
        double capacity;
    };
    for (const Row& row : {Row {"bd", shell::DiscTypeChoice::BdR, 50e9},
             Row {"bd-dl", shell::DiscTypeChoice::BdR, 50e9},
             Row {"dvd", shell::DiscTypeChoice::DvdPlusR, 4.7e9},
             Row {"dvd-dl", shell::DiscTypeChoice::DvdPlusRDualLayer, 8.5e9},
             Row {"cd", shell::DiscTypeChoice::CdR, 359'847.0 * 2048},
             Row {"cd-90", shell::DiscTypeChoice::CdR, 404'850.0 * 2048}}) {
        ApplyMedium(MediumOfOption(row.medium), state);
        EXPECT_EQ(state.MediaTypeChoice, row.type);
        EXPECT_EQ(state.MediaCapacity, row.capacity);
    }
}

TEST_F(BurnChoicesTest, ADetectedDiscMayBeOfAnyType)
{
    state.DiscFormat = shell::DiscFormat::Dvd;
    ApplyMedium(nullptr, state);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::AsDetected);
    EXPECT_EQ(state.DiscFormat, shell::DiscFormat::BluRay);
}

} // namespace velmora::terminal
