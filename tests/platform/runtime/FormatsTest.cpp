// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/Formats.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDateTime>

using namespace velmora;
using namespace Qt::StringLiterals;

namespace {

const QLocale kPoint = QLocale::c();
const QLocale kFrench {QLocale::French, QLocale::France};

} // namespace

TEST(FormatWholeTest, ZeroGivesAnEmptyText)
{
    EXPECT_EQ(runtime::FormatWhole(0), QString());
    EXPECT_EQ(runtime::FormatWhole(0.4), QString());
    EXPECT_EQ(runtime::FormatWhole(-0.4), QString());
}

TEST(FormatWholeTest, DigitsStandWithoutSeparatorsAndHalvesGoAwayFromZero)
{
    EXPECT_EQ(runtime::FormatWhole(1234567890), u"1234567890"_s);
    EXPECT_EQ(runtime::FormatWhole(9007199254740991), u"9007199254740991"_s);
    EXPECT_EQ(runtime::FormatWhole(0.5), u"1"_s);
    EXPECT_EQ(runtime::FormatWhole(2.5), u"3"_s);
    EXPECT_EQ(runtime::FormatWhole(-2.5), u"-3"_s);
}

TEST(FormatTwoDecimalsTest, FifteenDigitsAreTakenBeforeHalvesGoAwayFromZero)
{
    EXPECT_EQ(runtime::FormatTwoDecimals(1.005, kPoint), u"1.01"_s);
    EXPECT_EQ(runtime::FormatTwoDecimals(-1.005, kPoint), u"-1.01"_s);
    EXPECT_EQ(runtime::FormatTwoDecimals(2.675, kPoint), u"2.68"_s);
    EXPECT_EQ(runtime::FormatTwoDecimals(1.00499999, kPoint), u"1.00"_s);
    EXPECT_EQ(runtime::FormatTwoDecimals(9.999, kPoint), u"10.00"_s);
}

TEST(FormatTwoDecimalsTest, OneDigitAtLeastStandsBeforeTheSeparator)
{
    EXPECT_EQ(runtime::FormatTwoDecimals(0, kPoint), u"0.00"_s);
    EXPECT_EQ(runtime::FormatTwoDecimals(0.004, kPoint), u"0.00"_s);
    EXPECT_EQ(runtime::FormatTwoDecimals(0.0009, kPoint), u"0.00"_s);
    EXPECT_EQ(runtime::FormatTwoDecimals(0.005, kPoint), u"0.01"_s);
    EXPECT_EQ(runtime::FormatTwoDecimals(0.05, kPoint), u"0.05"_s);
    EXPECT_EQ(runtime::FormatTwoDecimals(-0.001, kPoint), u"0.00"_s);
}

TEST(FormatTwoDecimalsTest, TheSeparatorIsTheLocalesAndNothingGroupsTheDigits)
{
    EXPECT_EQ(runtime::FormatTwoDecimals(1234567.891, kFrench), u"1234567,89"_s);
    EXPECT_EQ(runtime::FormatTwoDecimals(1234567.891, kPoint), u"1234567.89"_s);
    EXPECT_EQ(runtime::FormatTwoDecimals(1e17, kPoint), u"100000000000000000.00"_s);
}

TEST(FormatPercentTest, TwoDecimalsAndTheSignDirectlyBehind)
{
    EXPECT_EQ(runtime::FormatPercent(0.1234, kFrench), u"12,34%"_s);
    EXPECT_EQ(runtime::FormatPercent(0, kFrench), u"0,00%"_s);
    EXPECT_EQ(runtime::FormatPercent(1, kPoint), u"100.00%"_s);
    EXPECT_EQ(runtime::FormatPercent(-0.5, kPoint), u"-50.00%"_s);
    EXPECT_EQ(runtime::FormatPercent(1.0 / 3, kPoint), u"33.33%"_s);
}

TEST(FormatDurationTest, TheTwoLargestUnitsAreShown)
{
    using std::chrono::seconds;
    EXPECT_EQ(runtime::FormatDuration(seconds(0), u' '), u"0 s"_s);
    EXPECT_EQ(runtime::FormatDuration(seconds(59), u' '), u"59 s"_s);
    EXPECT_EQ(runtime::FormatDuration(seconds(60), u' '), u"1 min 00 s"_s);
    EXPECT_EQ(runtime::FormatDuration(seconds(3599), u' '), u"59 min 59 s"_s);
    EXPECT_EQ(runtime::FormatDuration(seconds(3600), u' '), u"1 h 00 min"_s);
    EXPECT_EQ(runtime::FormatDuration(seconds(36059), u' '), u"10 h 00 min"_s);
}

TEST(FormatDurationTest, ANoBreakSpaceKeepsANumberAndItsUnitTogether)
{
    EXPECT_EQ(runtime::FormatDuration(std::chrono::seconds(42), u'\u00A0'), u"42\u00A0s"_s);
    EXPECT_EQ(
        runtime::FormatDuration(std::chrono::seconds(185), u'\u00A0'), u"3\u00A0min 05\u00A0s"_s);
    EXPECT_EQ(
        runtime::FormatDuration(std::chrono::seconds(3720), u'\u00A0'), u"1\u00A0h 02\u00A0min"_s);
}

TEST(DateStampTest, MinutesFollowTheHourOfA24HourClock)
{
    const QDateTime moment {QDate {2024, 3, 9}, QTime {21, 4, 7}};
    EXPECT_EQ(runtime::DateStamp(moment), u"20240309-210407"_s);
    EXPECT_EQ(runtime::DateStamp(moment.addSecs(-75600)), u"20240309-000407"_s);
}
