// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/FrenchText.h"

#include <chrono>
#include <gtest/gtest.h>

namespace velmora::terminal {

TEST(FrenchTextTest, DigitsStandInGroupsOfThree)
{
    EXPECT_EQ(NumberText(0), "0");
    EXPECT_EQ(NumberText(999), "999");
    EXPECT_EQ(NumberText(1000), "1 000");
    EXPECT_EQ(NumberText(1234567), "1 234 567");
    EXPECT_EQ(NumberText(18446744073709551615U), "18 446 744 073 709 551 615");
}

TEST(FrenchTextTest, ZeroAndOneTakeTheSingular)
{
    EXPECT_EQ(CountText(0, "fichier", "fichiers"), "0 fichier");
    EXPECT_EQ(CountText(1, "fichier", "fichiers"), "1 fichier");
    EXPECT_EQ(CountText(2, "fichier", "fichiers"), "2 fichiers");
    EXPECT_EQ(CountText(20000, "fichier", "fichiers"), "20 000 fichiers");
}

TEST(FrenchTextTest, SizesHaveADecimalUnitAndAComma)
{
    EXPECT_EQ(SizeText(0), "0 octet");
    EXPECT_EQ(SizeText(9999), "9 999 octets");
    EXPECT_EQ(SizeText(10000), "10,0 Ko");
    EXPECT_EQ(SizeText(9999949), "9 999,9 Ko");
    EXPECT_EQ(SizeText(10000000), "10,0 Mo");
    EXPECT_EQ(SizeText(1234500000), "1 234,5 Mo");
    EXPECT_EQ(SizeText(4700372992), "4 700,4 Mo");
    EXPECT_EQ(SizeText(25025314816), "25,0 Go");
    EXPECT_EQ(SizeText(12345678901234), "12,3 To");
    EXPECT_EQ(SizeText(18446744073709551615U), "18 446 744,1 To");
}

TEST(FrenchTextTest, TimesReadInTheirTwoLargestUnits)
{
    using std::chrono::seconds;
    EXPECT_EQ(DurationText(seconds(0)), "0 s");
    EXPECT_EQ(DurationText(seconds(59)), "59 s");
    EXPECT_EQ(DurationText(seconds(60)), "1 min 00 s");
    EXPECT_EQ(DurationText(seconds(185)), "3 min 05 s");
    EXPECT_EQ(DurationText(seconds(3720)), "1 h 02 min");
}

TEST(FrenchTextTest, OrdinaryLettersStayAsTheyAre)
{
    EXPECT_EQ(HarmlessText("Été 2024 – 写真 😀"), "Été 2024 – 写真 😀");
    EXPECT_EQ(HarmlessText("e\xCC\x81"), "e\xCC\x81"); // a combining accent
}

TEST(FrenchTextTest, ControlCharactersAreShownAsPictures)
{
    EXPECT_EQ(HarmlessText("a\nb"), "a␊b");
    EXPECT_EQ(HarmlessText("\x1b[31mrouge"), "␛[31mrouge");
    EXPECT_EQ(HarmlessText("\x7f"), "␡");
    EXPECT_EQ(HarmlessText("\r\t"), "␍␉");
}

TEST(FrenchTextTest, EightBitControlsAndDirectionMarksAreReplaced)
{
    EXPECT_EQ(HarmlessText("\xC2\x9B"
                           "31m"),
        "\uFFFD31m"); // CSI in its eight-bit form
    EXPECT_EQ(HarmlessText("a\u202Egpj.exe"), "a\uFFFDgpj.exe");
    EXPECT_EQ(HarmlessText("a\u2028b"), "a\uFFFDb");
}

TEST(FrenchTextTest, BytesThatAreNotUtf8AreReplacedOneByOne)
{
    EXPECT_EQ(HarmlessText("caf\xE9.txt"), "caf\uFFFD.txt");
    EXPECT_EQ(HarmlessText("\xC0\xAF"), "\uFFFD\uFFFD");           // an overlong slash
    EXPECT_EQ(HarmlessText("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD"); // a lone surrogate
    EXPECT_EQ(Quoted("caf\xE9"), "« caf\uFFFD »");
}

} // namespace velmora::terminal
