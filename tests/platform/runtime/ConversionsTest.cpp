// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace velmora;
using namespace Qt::StringLiterals;
using test::ErrorNumberOf;

TEST(ToInt16Test, HalvesGoToTheEvenNeighbour)
{
    EXPECT_EQ(runtime::ToInt16(0.5), 0);
    EXPECT_EQ(runtime::ToInt16(1.5), 2);
    EXPECT_EQ(runtime::ToInt16(2.5), 2);
    EXPECT_EQ(runtime::ToInt16(-1.5), -2);
    EXPECT_EQ(runtime::ToInt16(-0.5), 0);
}

TEST(ToInt16Test, OtherFractionsGoToTheNearest)
{
    EXPECT_EQ(runtime::ToInt16(4.89), 5);
    EXPECT_EQ(runtime::ToInt16(13.64), 14);
    EXPECT_EQ(runtime::ToInt16(-8.4), -8);
}

TEST(ToInt16Test, TheRangeIsTestedAfterRounding)
{
    EXPECT_EQ(runtime::ToInt16(32767.49), 32767);
    EXPECT_EQ(runtime::ToInt16(-32768.5), -32768);
    EXPECT_EQ(ErrorNumberOf([] { runtime::ToInt16(32767.5); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { runtime::ToInt16(-32769); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { runtime::ToInt16(std::nan("")); }), 6);
}

TEST(ToInt32Test, RoundsAsTheShorterOneDoes)
{
    EXPECT_EQ(runtime::ToInt32(-1), -1);
    EXPECT_EQ(runtime::ToInt32(2.5), 2);
    EXPECT_EQ(runtime::ToInt32(2147483647.49), 2147483647);
    EXPECT_EQ(runtime::ToInt32(-2147483648.5), -2147483648LL);
    EXPECT_EQ(ErrorNumberOf([] { runtime::ToInt32(2147483647.5); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { runtime::ToInt32(-2147483649.0); }), 6);
}

TEST(MultiplyInt32Test, TheLargestProductIsOneBelowTwoToThe31)
{
    EXPECT_EQ(runtime::MultiplyInt32(2048, 1048575), 2147481600);
    EXPECT_EQ(runtime::MultiplyInt32(2147483647, 1), 2147483647);
    EXPECT_EQ(ErrorNumberOf([] { runtime::MultiplyInt32(2048, 1048576); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { runtime::MultiplyInt32(-2147483647, 2); }), 6);
}

TEST(DivideTest, ANumberByZeroIsError11AndZeroByZeroError6)
{
    EXPECT_EQ(runtime::Divide(1, 4), 0.25);
    EXPECT_EQ(runtime::Divide(0, 4), 0);
    EXPECT_EQ(ErrorNumberOf([] { runtime::Divide(1, 0); }), 11);
    EXPECT_EQ(ErrorNumberOf([] { runtime::Divide(-1, 0); }), 11);
    EXPECT_EQ(ErrorNumberOf([] { runtime::Divide(0, 0); }), 6);
}

TEST(WholePartTest, IntGoesDownAndFixGoesTowardsZero)
{
    EXPECT_EQ(runtime::Int(-8.4), -9);
    EXPECT_EQ(runtime::Int(8.4), 8);
    EXPECT_EQ(runtime::Fix(-8.4), -8);
    EXPECT_EQ(runtime::Fix(8.4), 8);
}

TEST(ValTest, TheNumberStopsAtTheFirstForeignCharacter)
{
    EXPECT_EQ(runtime::Val(u"16x"), 16);
    EXPECT_EQ(runtime::Val(u"8780"), 8780);
    EXPECT_EQ(runtime::Val(u"1.5.2"), 1.5);
    EXPECT_EQ(runtime::Val(u"12,5"), 12);
    EXPECT_EQ(runtime::Val(u".5x"), 0.5);
    EXPECT_EQ(runtime::Val(u"-3 Mo"), -3);
    EXPECT_EQ(runtime::Val(u"+3"), 3);
}

TEST(ValTest, ATextWithoutANumberIsZero)
{
    EXPECT_EQ(runtime::Val(u"Maximum"), 0);
    EXPECT_EQ(runtime::Val(u""), 0);
    EXPECT_EQ(runtime::Val(u"-"), 0);
    EXPECT_EQ(runtime::Val(u"."), 0);
}

TEST(ValTest, BlanksTabsAndLineFeedsCountNowhere)
{
    EXPECT_EQ(runtime::Val(u" 2 45 7"), 2457);
    EXPECT_EQ(runtime::Val(u"\t1\n2"), 12);
    EXPECT_EQ(runtime::Val(u"1\r2"), 1);
}

TEST(ValTest, ExponentsAreWrittenWithEOrD)
{
    EXPECT_EQ(runtime::Val(u"1e3"), 1000);
    EXPECT_EQ(runtime::Val(u"1d3"), 1000);
    EXPECT_EQ(runtime::Val(u"2.5E-1"), 0.25);
    EXPECT_EQ(runtime::Val(u"7e"), 7);
    EXPECT_EQ(runtime::Val(u"7e+x"), 7);
    EXPECT_EQ(runtime::Val(u"1e-999"), 0);
    EXPECT_EQ(ErrorNumberOf([] { runtime::Val(u"1e999"); }), 6);
}

TEST(ValTest, PrefixesAnnounceHexadecimalAndOctalDigits)
{
    EXPECT_EQ(runtime::Val(u"&H1F"), 31);
    EXPECT_EQ(runtime::Val(u"&o17"), 15);
    EXPECT_EQ(runtime::Val(u"&HFFFF"), -1);
    EXPECT_EQ(runtime::Val(u"&H10000"), 65536);
    EXPECT_EQ(runtime::Val(u"&HFFFFFFFF"), -1);
    EXPECT_EQ(runtime::Val(u"&O18"), 1);
    EXPECT_EQ(ErrorNumberOf([] { runtime::Val(u"&H100000000"); }), 6);
}

TEST(StrTest, ThereIsAPlaceForTheSignAndThePointIsAlwaysAPoint)
{
    EXPECT_EQ(runtime::Str(0), u" 0"_s);
    EXPECT_EQ(runtime::Str(459), u" 459"_s);
    EXPECT_EQ(runtime::Str(-459.65), u"-459.65"_s);
    EXPECT_EQ(runtime::Str(459.001), u" 459.001"_s);
    EXPECT_EQ(runtime::Str(0.5), u" .5"_s);
    EXPECT_EQ(runtime::Str(-1062600702), u"-1062600702"_s);
}

TEST(StrTest, FifteenSignificantDigitsAreShown)
{
    EXPECT_EQ(runtime::Str(123456789012345), u" 123456789012345"_s);
    EXPECT_EQ(runtime::Str(1e15), u" 1E+15"_s);
    EXPECT_EQ(runtime::Str(1.0 / 3), u" .333333333333333"_s);
}

TEST(FileLengthTest, TwoGibibytesAndMoreWrapToNegative)
{
    EXPECT_EQ(runtime::WrappedFileLength(2147483647), 2147483647);
    EXPECT_EQ(runtime::WrappedFileLength(2147483648), -2147483648);
    EXPECT_EQ(runtime::WrappedFileLength(4294967295), -1);
    EXPECT_EQ(runtime::WrappedFileLength(4294967296), 0);
}

TEST(LargeIntTest, BothHalvesAreUnsigned)
{
    EXPECT_EQ(runtime::LargeIntToDouble(5, 0), 5);
    EXPECT_EQ(runtime::LargeIntToDouble(-1, 0), 4294967295.0);
    EXPECT_EQ(runtime::LargeIntToDouble(0, 1), 4294967296.0);
    EXPECT_EQ(runtime::LargeIntToDouble(0, -1), 4294967295.0 * 4294967296.0);
}
