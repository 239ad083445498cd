// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/DiscCapacities.h"

#include <gtest/gtest.h>

using namespace velmora::compilation;
using velmora::shell::DiscFormat;

TEST(DiscCapacitiesTest, FormatsHoldTheirSmallestDisc)
{
    EXPECT_EQ(CapacityOfFormat(DiscFormat::BluRay), 25000000000.0);
    EXPECT_EQ(CapacityOfFormat(DiscFormat::Dvd), 4700000000.0);
    EXPECT_EQ(CapacityOfFormat(DiscFormat::Cd), 640000000.0);
}

TEST(DiscCapacitiesTest, OptionsHoldWhatTheirCaptionsSay)
{
    EXPECT_EQ(CapacityOfBdOption(0), 25000000000.0);
    EXPECT_EQ(CapacityOfBdOption(1), 50000000000.0);
    EXPECT_EQ(CapacityOfDvdOption(0), 4700000000.0);
    EXPECT_EQ(CapacityOfDvdOption(1), 8500000000.0);
    EXPECT_EQ(CapacityOfCdOption(0), 640000000.0);
    EXPECT_EQ(CapacityOfCdOption(1), 700000000.0);
    EXPECT_EQ(CapacityOfCdOption(2), 800000000.0);
}

TEST(DiscCapacitiesTest, OtherButtonsChangeNoCapacity)
{
    EXPECT_FALSE(CapacityOfFormat(DiscFormat::InDrive)); // the detected disc brings its own
    EXPECT_FALSE(CapacityOfCdOption(3));
    for (qint16 index = 2; index <= 7; ++index) {
        EXPECT_FALSE(CapacityOfBdOption(index)) << index;
        EXPECT_FALSE(CapacityOfDvdOption(index)) << index;
    }
}
