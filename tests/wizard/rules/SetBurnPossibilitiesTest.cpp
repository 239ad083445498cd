// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/SetBurnPossibilities.h"

#include "tests/wizard/rules/TranscriptFormats.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

class SetBurnPossibilitiesTest : public testing::Test {
protected:
    std::string ShownFor(qint32 mask)
    {
        transcript.Clear();
        SetBurnPossibilities(mask, screen);
        return transcript.Text();
    }

    test::Transcript transcript;
    test::TranscriptFormats screen {transcript};
};

namespace {

const std::string kNoBluRay = "CorvaneButton2(0) painted 808080\n";
const std::string kNoDvd
    = "CorvaneButton2(1) painted 808080\nCorvaneButtonAudio(0) painted 808080\n"
      "CorvaneButtonVideo(0) painted 808080\nCorvaneButtonVideo(1) painted 808080\n"
      "CorvaneButtonVideo(2) painted 808080\n";
const std::string kNoCd
    = "CorvaneButton2(2) painted 808080\nCorvaneButtonAudio(1) painted 808080\n";
const std::string kDvd = "CorvaneButton2(1) painted C06040\nCorvaneButtonAudio(0) painted C06040\n"
                         "CorvaneButtonVideo(0) painted C06040\n";
const std::string kCd = "CorvaneButton2(2) painted C06040\nCorvaneButtonAudio(1) painted C06040\n";

} // namespace

TEST_F(SetBurnPossibilitiesTest, WithoutDoubleLayersTheThreeFormatsAreOnOffer)
{
    EXPECT_EQ(ShownFor(0x25),
        "CorvaneButton2(0) painted C06040\nBDOptionButton1(1) disabled\n" + kDvd
            + "DVDOptionButton1(1) disabled\nCorvaneButtonVideo(1) painted 808080\n" + kCd);
}

TEST_F(SetBurnPossibilitiesTest, WithEverythingEverythingIsOnOffer)
{
    EXPECT_EQ(ShownFor(0xFF),
        "CorvaneButton2(0) painted C06040\nBDOptionButton1(1) enabled\n" + kDvd
            + "DVDOptionButton1(1) enabled\nCorvaneButtonVideo(1) painted C06040\n" + kCd);
}

TEST_F(SetBurnPossibilitiesTest, WithNothingAllThreeAreGreyAndTheOptionsStay)
{
    EXPECT_EQ(ShownFor(0), kNoBluRay + kNoDvd + kNoCd);
}

TEST_F(SetBurnPossibilitiesTest, ARecorderThatOnlyRewritesLeavesThemGrey)
{
    EXPECT_EQ(ShownFor(0x02 | 0x10 | 0x80), kNoBluRay + kNoDvd + kNoCd);
}

TEST_F(SetBurnPossibilitiesTest, DoubleLayersAloneDontMakeAFormat)
{
    EXPECT_EQ(ShownFor(0x48), kNoBluRay + kNoDvd + kNoCd);
}

TEST_F(SetBurnPossibilitiesTest, TheDetectionIsNeverPainted)
{
    ShownFor(0);
    EXPECT_TRUE(screen.IsPossible(shell::DiscFormat::InDrive));
}

TEST_F(SetBurnPossibilitiesTest, EachFormatGoesByItsOwnBit)
{
    EXPECT_EQ(ShownFor(0x01), kNoBluRay + kNoDvd + kCd);
    EXPECT_EQ(ShownFor(0x04),
        kNoBluRay + kDvd + "DVDOptionButton1(1) disabled\nCorvaneButtonVideo(1) painted 808080\n"
            + kNoCd);
    EXPECT_EQ(ShownFor(0x20),
        "CorvaneButton2(0) painted C06040\nBDOptionButton1(1) disabled\n" + kNoDvd + kNoCd);
}

} // namespace velmora::wizard
