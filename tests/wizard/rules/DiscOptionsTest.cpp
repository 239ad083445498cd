// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/DiscOptions.h"

#include "compilation/CapacityAccount.h"
#include "shell/ProgramState.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

class DiscOptionsTest : public testing::Test {
protected:
    DiscOptionsTest() { state.MediaTypeChoice = shell::DiscTypeChoice::BdR; }

    shell::ProgramState state;
    compilation::CapacityAccount capacity {state, QLocale::c()};
    DiscOptions options {state, capacity};
};

TEST_F(DiscOptionsTest, BluRayHasTwoSizesAndOneType)
{
    options.BDOptionButton1(1);
    EXPECT_EQ(state.MediaCapacity, 50'000'000'000);
    EXPECT_EQ(capacity.Label10(), u"50.00 Go"_s);
    options.BDOptionButton1(0);
    EXPECT_EQ(state.MediaCapacity, 25'000'000'000);
    EXPECT_EQ(capacity.Label10(), u"25.00 Go"_s);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::BdR);
}

TEST_F(DiscOptionsTest, DvdChangesTheTypeWithTheSize)
{
    options.DVDOptionButton1(1);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::DvdPlusRDualLayer);
    EXPECT_EQ(capacity.Label10(), u"8.50 Go"_s);
    options.DVDOptionButton1(0);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::DvdPlusR);
    EXPECT_EQ(capacity.Label10(), u"4.70 Go"_s);
}

TEST_F(DiscOptionsTest, CdHasThreeSizesAndOneType)
{
    state.MediaTypeChoice = shell::DiscTypeChoice::CdR;
    const QStringList labels {u"640 Mo"_s, u"700 Mo"_s, u"800 Mo"_s};
    for (qint16 i = 0; i < 3; ++i) {
        options.CDOptionButton1(i);
        EXPECT_EQ(capacity.Label10(), labels[i]);
        EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::CdR);
    }
}

TEST_F(DiscOptionsTest, AChangeMeasuresTheCompilationAnew)
{
    capacity.CalcSpaceOnMedia(350'000'000);
    options.CDOptionButton1(1);
    EXPECT_EQ(capacity.BarValue(), 45);
    options.CDOptionButton1(0);
    EXPECT_EQ(capacity.BarValue(), 49);
}

TEST_F(DiscOptionsTest, AButtonPastTheKnownOnesOnlyRefreshes)
{
    options.CDOptionButton1(1);
    options.BDOptionButton1(7);
    options.DVDOptionButton1(7);
    EXPECT_EQ(state.MediaCapacity, 700'000'000);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::BdR);
}

} // namespace velmora::wizard
