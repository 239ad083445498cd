// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/DiscOptions.h"

#include "compilation/CapacityAccount.h"
#include "shell/ProgramState.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using compilation::DiscSize;

class DiscOptionsTest : public testing::Test {
protected:
    DiscOptionsTest() { state.MediaTypeChoice = shell::DiscTypeChoice::BdR; }

    shell::ProgramState state;
    compilation::CapacityAccount capacity {state, QLocale::c()};
    DiscOptions options {state, capacity};
};

TEST_F(DiscOptionsTest, BluRayHasTwoSizesAndOneType)
{
    options.TakeSize(DiscSize::BdTwoLayers);
    EXPECT_EQ(state.MediaCapacity, 50'000'000'000);
    EXPECT_EQ(capacity.Label10(), u"50.00 Go"_s);
    options.TakeSize(DiscSize::BdOneLayer);
    EXPECT_EQ(state.MediaCapacity, 25'000'000'000);
    EXPECT_EQ(capacity.Label10(), u"25.00 Go"_s);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::BdR);
}

TEST_F(DiscOptionsTest, DvdChangesTheTypeWithTheSize)
{
    options.TakeSize(DiscSize::DvdTwoLayers);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::DvdPlusRDualLayer);
    EXPECT_EQ(capacity.Label10(), u"8.50 Go"_s);
    options.TakeSize(DiscSize::DvdOneLayer);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::DvdPlusR);
    EXPECT_EQ(capacity.Label10(), u"4.70 Go"_s);
}

TEST_F(DiscOptionsTest, CdHasThreeSizesAndOneType)
{
    state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
    for (const auto& [size, label] : {std::pair(DiscSize::Cd74Minutes, u"640 Mo"_s),
             std::pair(DiscSize::Cd80Minutes, u"700 Mo"_s),
             std::pair(DiscSize::Cd90Minutes, u"800 Mo"_s)}) {
        options.TakeSize(size);
        EXPECT_EQ(capacity.Label10(), label);
        EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::CdR);
    }
}

TEST_F(DiscOptionsTest, AChangeMeasuresTheCompilationAnew)
{
    capacity.CalcSpaceOnMedia(350'000'000);
    options.TakeSize(DiscSize::Cd80Minutes);
    EXPECT_EQ(capacity.BarValue(), 45);
    options.TakeSize(DiscSize::Cd74Minutes);
    EXPECT_EQ(capacity.BarValue(), 49);
}

} // namespace velmora::wizard
