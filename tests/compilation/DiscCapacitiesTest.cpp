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

TEST(DiscCapacitiesTest, SizesHoldWhatTheirCaptionsSay)
{
    EXPECT_EQ(CapacityOf(DiscSize::BdOneLayer), 25000000000.0);
    EXPECT_EQ(CapacityOf(DiscSize::BdTwoLayers), 50000000000.0);
    EXPECT_EQ(CapacityOf(DiscSize::DvdOneLayer), 4700000000.0);
    EXPECT_EQ(CapacityOf(DiscSize::DvdTwoLayers), 8500000000.0);
    EXPECT_EQ(CapacityOf(DiscSize::Cd74Minutes), 640000000.0);
    EXPECT_EQ(CapacityOf(DiscSize::Cd80Minutes), 700000000.0);
    EXPECT_EQ(CapacityOf(DiscSize::Cd90Minutes), 800000000.0);
}

TEST(DiscCapacitiesTest, TheDiscInTheDriveBringsItsOwn)
{
    EXPECT_FALSE(CapacityOfFormat(DiscFormat::InDrive));
}
