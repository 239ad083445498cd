// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/DiscCapacities.h"

#include <gtest/gtest.h>

using namespace velmora::compilation;

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
