// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "unicode/Unicode.h"

#include "tests/support/Hex.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace velmora::unicode::test {

using velmora::test::Hex;

namespace {

/// The code points of a text; kUndecodable for each byte that belongs to none.
std::vector<char32_t> CodePoints(std::string_view text)
{
    std::vector<char32_t> all;
    for (std::size_t at = 0; at < text.size();) {
        all.push_back(NextCodePoint(text, at));
    }
    return all;
}

std::vector<char32_t> Undecodable(std::size_t bytes)
{
    return std::vector<char32_t>(bytes, kUndecodable);
}

} // namespace

TEST(UnicodeTest, FirstAndLastCodePointOfEachLengthAreDecoded)
{
    // Unicode, table 3-7.
    EXPECT_EQ(CodePoints(std::string_view("\0\x7F", 2)), (std::vector<char32_t> {0, 0x7F}));
    EXPECT_EQ(CodePoints("\xC2\x80\xDF\xBF"), (std::vector<char32_t> {0x80, 0x7FF}));
    EXPECT_EQ(CodePoints("\xE0\xA0\x80\xEF\xBF\xBF"), (std::vector<char32_t> {0x800, 0xFFFF}));
    EXPECT_EQ(CodePoints("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"),
        (std::vector<char32_t> {0x10000, 0x10FFFF}));
}

TEST(UnicodeTest, OverlongFormsAreNoCharacters)
{
    EXPECT_EQ(CodePoints("\xC0\x80"), Undecodable(2));
    EXPECT_EQ(CodePoints("\xC1\xBF"), Undecodable(2));
    EXPECT_EQ(CodePoints("\xE0\x9F\xBF"), Undecodable(3));
    EXPECT_EQ(CodePoints("\xF0\x8F\xBF\xBF"), Undecodable(4));
}

TEST(UnicodeTest, SurrogatesAreNoCharacters)
{
    EXPECT_EQ(CodePoints("\xED\xA0\x80"), Undecodable(3));
    EXPECT_EQ(CodePoints("\xED\xBF\xBF"), Undecodable(3));
    EXPECT_EQ(CodePoints("\xED\x9F\xBF\xEE\x80\x80"), (std::vector<char32_t> {0xD7FF, 0xE000}));
}

TEST(UnicodeTest, CodePointsBeyondTheLastAreNoCharacters)
{
    EXPECT_EQ(CodePoints("\xF4\x90\x80\x80"), Undecodable(4));
    EXPECT_EQ(CodePoints("\xF5\x80\x80\x80"), Undecodable(4));
    EXPECT_EQ(CodePoints("\xFF\xFE"), Undecodable(2));
}

TEST(UnicodeTest, TruncatedFormsAreNoCharacters)
{
    EXPECT_EQ(CodePoints("\xC3"), Undecodable(1));
    EXPECT_EQ(CodePoints("\xE2\x82"), Undecodable(2));
    EXPECT_EQ(CodePoints("\xF0\x9F\x98"), Undecodable(3));
    EXPECT_EQ(CodePoints("\x80"), Undecodable(1)); // a tail without its head
}

TEST(UnicodeTest, BrokenFormTakesNothingOfWhatFollows)
{
    EXPECT_EQ(CodePoints("\xE2\x82z"), (std::vector<char32_t> {kUndecodable, kUndecodable, 'z'}));
    EXPECT_EQ(CodePoints("\xC3\xC3\xA9"), (std::vector<char32_t> {kUndecodable, 0xE9}));
}

TEST(UnicodeTest, Utf8IsWrittenInItsShortestForm)
{
    std::string text;
    for (const char32_t c : {0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0x10000, 0x10FFFF}) {
        AppendUtf8(text, c);
    }
    EXPECT_EQ(Hex(text), "7F C2 80 DF BF E0 A0 80 EF BF BF F0 90 80 80 F4 8F BF BF");
}

TEST(UnicodeTest, Utf16HasPairsBeyondTheBasicPlane)
{
    std::string units;
    for (const char32_t c : {0x41, 0xFFFF, 0x10000, 0x1F600, 0x10FFFF}) {
        AppendUtf16(units, c);
    }
    EXPECT_EQ(Hex(units), "00 41 FF FF D8 00 DC 00 D8 3D DE 00 DB FF DF FF");
    EXPECT_EQ(FromUtf16(units), "A\xEF\xBF\xBF\xF0\x90\x80\x80\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF");
}

TEST(UnicodeTest, ReadableTextShowsBrokenBytesAsReplacementCharacters)
{
    EXPECT_EQ(ReadableText("a\xFFé"), "a\uFFFDé");
    EXPECT_EQ(ReadableText("plain"), "plain");
}

} // namespace velmora::unicode::test
