// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/SizeTexts.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;

namespace {

const QLocale kPoint = QLocale::c();
const QLocale kFrench {QLocale::French, QLocale::France};

QString Ko(double bytes) { return shell::FormatSizeKo(bytes, kPoint); }

QString Mo(double bytes) { return shell::FormatSizeMo(bytes, kPoint); }

} // namespace

TEST(FormatSizeKoTest, AnUnknownSizeIsZeroAndAnEmptyFileIsOne)
{
    EXPECT_EQ(shell::FormatSizeKo(std::nullopt, kPoint), u"0 Ko"_s);
    EXPECT_EQ(Ko(0), u"1 Ko"_s);
    EXPECT_EQ(Ko(100), u"1 Ko"_s);
    EXPECT_EQ(Ko(999), u"1 Ko"_s);
}

TEST(FormatSizeKoTest, UnitsAreDecimalAndCutNotRounded)
{
    EXPECT_EQ(Ko(1000), u"1 Ko"_s);
    EXPECT_EQ(Ko(1500), u"1 Ko"_s);
    EXPECT_EQ(Ko(2000), u"2 Ko"_s);
    EXPECT_EQ(Ko(999999), u"999 Ko"_s);
    EXPECT_EQ(Ko(1000000), u"1 Mo"_s);
    EXPECT_EQ(Ko(999999999), u"999 Mo"_s);
}

TEST(FormatSizeKoTest, FromAMilliardOnThereAreTwoDecimalsInTheLocalesWriting)
{
    EXPECT_EQ(Ko(1000000000), u"1.00 Go"_s);
    EXPECT_EQ(shell::FormatSizeKo(1000000000, kFrench), u"1,00 Go"_s);
    EXPECT_EQ(Ko(1234567890123), u"1234.57 Go"_s);
}

TEST(FormatSizeMoTest, EverythingBelowAMilliardIsInWholeMo)
{
    EXPECT_EQ(shell::FormatSizeMo(std::nullopt, kPoint), u"0 Mo"_s);
    EXPECT_EQ(Mo(0), u"0 Mo"_s);
    EXPECT_EQ(Mo(999999), u"0 Mo"_s);
    EXPECT_EQ(Mo(999999999), u"999 Mo"_s);
    EXPECT_EQ(Mo(1000000000), u"1.00 Go"_s);
}

TEST(FormatSizeMoTest, TheCapacitiesOfTheDiscFormatsReadAsOnTheirPackages)
{
    EXPECT_EQ(Mo(640000000), u"640 Mo"_s);
    EXPECT_EQ(Mo(700000000), u"700 Mo"_s);
    EXPECT_EQ(Mo(800000000), u"800 Mo"_s);
    EXPECT_EQ(Mo(4700000000), u"4.70 Go"_s);
    EXPECT_EQ(Mo(8500000000), u"8.50 Go"_s);
    EXPECT_EQ(Mo(25000000000), u"25.00 Go"_s);
    EXPECT_EQ(Mo(50000000000), u"50.00 Go"_s);
    EXPECT_EQ(shell::FormatSizeMo(8500000000, kFrench), u"8,50 Go"_s);
}
