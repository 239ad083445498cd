// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/SpeedChoice.h"

#include "tests/support/ErrorNumberOf.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

namespace velmora::test {

using namespace Qt::StringLiterals;
using recorder::SpeedEntry;
using writing::ChooseSpeed;

namespace {

/// 48, 32, 16 and 8 times.
const std::vector<SpeedEntry> kCdSpeeds {
    {4224, qint16 {48}}, {2816, qint16 {32}}, {1408, qint16 {16}}, {704, qint16 {8}}};
/// A Blu-ray's name gives no multipliers.
const std::vector<SpeedEntry> kBluRaySpeeds {{13170, qint16 {0}}, {8780, qint16 {0}}};
/// A disc with one speed leaves its element empty.
const std::vector<SpeedEntry> kOneSpeed(1);

struct SpeedRow {
    const char* name;
    const std::vector<SpeedEntry>& speeds;
    QString selection;
    double writeSpeed;
    QString retained;
};

void PrintTo(const SpeedRow& row, std::ostream* out) { *out << row.name; }

class SpeedChoiceTest : public testing::TestWithParam<SpeedRow> { };

} // namespace

TEST_P(SpeedChoiceTest, FollowsTheSelection)
{
    const SpeedRow& row = GetParam();
    const writing::SpeedChoice choice = ChooseSpeed({row.selection, 1, 4}, row.speeds);
    EXPECT_EQ(choice.writeSpeed, row.writeSpeed);
    EXPECT_EQ(choice.retainedMultiplier, row.retained);
}

INSTANTIATE_TEST_SUITE_P(Rows,
    SpeedChoiceTest,
    testing::Values(SpeedRow {"MaximumIsTheFastest", kCdSpeeds, u"Maximum"_s, -1, u"48"_s},
        SpeedRow {"AnEmptyTextIsTheFastest", kCdSpeeds, u""_s, -1, u"48"_s},
        SpeedRow {"ASpeedOfTheListIsTaken", kCdSpeeds, u"16x"_s, 1408, u"16"_s},
        SpeedRow {"TheFastestOfTheListIsTaken", kCdSpeeds, u"48x"_s, 4224, u"48"_s},
        SpeedRow {"TheSlowestOfTheListIsTaken", kCdSpeeds, u"8x"_s, 704, u"8"_s},
        SpeedRow {"BetweenTwoTheSlowerIsTaken", kCdSpeeds, u"24x"_s, 1408, u"16"_s},
        SpeedRow {"JustBelowASpeedTheNextSlowerIsTaken", kCdSpeeds, u"31.9x"_s, 1408, u"16"_s},
        SpeedRow {"AboveAllTheFastestIsTaken", kCdSpeeds, u"52x"_s, 4224, u"48"_s},
        SpeedRow {"BelowAllTheWriteIsAsFastAsCanBe", kCdSpeeds, u"4x"_s, -1, u"48"_s},
        SpeedRow {"WithoutMultipliersTheBareNumberIsAskedFor", kBluRaySpeeds, u"4x"_s, 4, u"3"_s},
        SpeedRow {"WithoutMultipliersMaximumIsTheFastest", kBluRaySpeeds, u"Maximum"_s, -1, u"0"_s},
        SpeedRow {"OfOneSpeedTheBareNumberIsAskedFor", kOneSpeed, u"2.4x"_s, 2.4, u"3"_s},
        SpeedRow {"OfOneSpeedMaximumReportsNothing", kOneSpeed, u"Maximum"_s, -1, u""_s}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SpeedChoicePlaceTest, ThePlaceIsCountedFromTheListsEnd)
{
    EXPECT_EQ(ChooseSpeed({u"4x"_s, 0, 4}, kBluRaySpeeds).retainedMultiplier, u"4"_s);
    EXPECT_EQ(ChooseSpeed({u"4x"_s, 3, 4}, kBluRaySpeeds).retainedMultiplier, u"1"_s);
    EXPECT_EQ(ChooseSpeed({u"4x"_s, -1, 4}, kBluRaySpeeds).retainedMultiplier, u"5"_s);
}

TEST(SpeedChoicePlaceTest, AListWithoutAnElementCantBeRead)
{
    EXPECT_EQ(ErrorNumberOf([] { ChooseSpeed({u"Maximum"_s, 0, 1}, {}); }), 9);
}

} // namespace velmora::test
