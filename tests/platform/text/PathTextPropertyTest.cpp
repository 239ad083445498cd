// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/QtPrinters.h"
#include "text/PathText.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

using namespace velmora;
using text::ToNativePath;
using text::ToProgramPath;

namespace {

constexpr int kRounds = 20000;

/// Byte strings biased towards the heads and tails of UTF-8 sequences, so that well-formed ones,
/// nearly well-formed ones and garbage are all frequent.
std::string RandomBytes(std::mt19937& random)
{
    static constexpr std::array<unsigned char, 24> kLikely {0x00,
        0x2F,
        0x41,
        0x5C,
        0x7F,
        0x80,
        0x8F,
        0x90,
        0x9F,
        0xA0,
        0xAF,
        0xB2,
        0xBF,
        0xC0,
        0xC2,
        0xDF,
        0xE0,
        0xE2,
        0xED,
        0xEF,
        0xF0,
        0xF4,
        0xF5,
        0xFF};
    std::string bytes(random() % 12, '\0');
    for (char& byte : bytes) {
        const unsigned any = random() % 256;
        byte = static_cast<char>(random() % 4 == 0 ? any : kLikely[random() % kLikely.size()]);
    }
    return bytes;
}

/// Texts biased towards separators and surrogates of every kind.
QString RandomText(std::mt19937& random)
{
    static constexpr std::array<char16_t, 16> kLikely {u'/',
        u'\\',
        u'a',
        0x00E9,
        0x20AC,
        0xFFFD,
        0xD7FF,
        0xD800,
        0xD83D,
        0xDBFF,
        0xDC00,
        0xDC7F,
        0xDC80,
        0xDCBF,
        0xDCFF,
        0xDFFF};
    QString text;
    for (auto left = random() % 12; left > 0; --left) {
        const auto anyByte = static_cast<char16_t>(0xDC80 + random() % 128);
        text += QChar(random() % 3 == 0 ? anyByte : kLikely[random() % kLikely.size()]);
    }
    return text;
}

} // namespace

TEST(PathTextPropertyTest, EveryByteStringComesBackFromItsText)
{
    std::mt19937 random(20240309);
    for (int round = 0; round < kRounds; ++round) {
        const std::string bytes = RandomBytes(random);
        ASSERT_EQ(ToNativePath(ToProgramPath(bytes)), bytes) << "round " << round;
    }
}

TEST(PathTextPropertyTest, EveryStringOfTwoBytesComesBack)
{
    for (unsigned pair = 0; pair < 0x10000; ++pair) {
        const std::string bytes {static_cast<char>(pair >> 8), static_cast<char>(pair & 0xFF)};
        ASSERT_EQ(ToNativePath(ToProgramPath(bytes)), bytes) << pair;
    }
}

TEST(PathTextPropertyTest, DifferentByteStringsHaveDifferentTexts)
{
    std::mt19937 random(3);
    for (int round = 0; round < kRounds; ++round) {
        const std::string one = RandomBytes(random);
        const std::string other = RandomBytes(random);
        ASSERT_EQ(one == other, ToProgramPath(one) == ToProgramPath(other)) << "round " << round;
    }
}

TEST(PathTextPropertyTest, ATextThatNamesAPathNamesTheSamePathForEver)
{
    std::mt19937 random(7);
    for (int round = 0; round < kRounds; ++round) {
        const std::string bytes = ToNativePath(RandomText(random));
        ASSERT_EQ(ToNativePath(ToProgramPath(bytes)), bytes) << "round " << round;
    }
}

TEST(PathTextPropertyTest, PathsJoinedAsTextsAreTheirBytesJoined)
{
    std::mt19937 random(11);
    for (int round = 0; round < kRounds; ++round) {
        std::string native = RandomBytes(random);
        const std::string name = RandomBytes(random);
        const QString joined = ToProgramPath(native) + u'\\' + ToProgramPath(name);
        native.append("/").append(name);
        ASSERT_EQ(ToNativePath(joined), native) << "round " << round;
    }
}

TEST(PathTextPropertyTest, ATextForTheEyeIsValidAndAsLongAsTheOther)
{
    std::mt19937 random(13);
    for (int round = 0; round < kRounds; ++round) {
        const QString text = RandomText(random);
        const QString shown = text::ForTheEye(text);
        ASSERT_TRUE(shown.isValidUtf16()) << "round " << round;
        ASSERT_EQ(shown.size(), text.size());
    }
}
