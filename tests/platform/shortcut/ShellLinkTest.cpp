// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shortcut/ShellLink.h"

#include "tests/support/QtPrinters.h"
#include "tests/support/ShellLinkFile.h"

#include <gtest/gtest.h>

using namespace velmora;
using namespace Qt::StringLiterals;
using shortcut::ReadShellLink;
using shortcut::ShellLink;
using test::ShellLinkFile;

namespace {

std::optional<ShellLink> Read(const std::string& bytes)
{
    return ReadShellLink(std::as_bytes(std::span(bytes)));
}

/// A link with every part that is read.
ShellLinkFile FullLink()
{
    return {.idList = std::string(20, 'i'),
        .localBasePath = "Z:\\home\\u\\a.txt",
        .name = u"Raccourci"_s,
        .relativePath = u"..\\a.txt"_s};
}

} // namespace

TEST(ShellLinkTest, TellsTheRelativePathAndTheLocalOne)
{
    EXPECT_EQ(Read(FullLink().Bytes()),
        (ShellLink {.localBasePath = u"Z:\\home\\u\\a.txt"_s, .relativePath = u"..\\a.txt"_s}));
}

TEST(ShellLinkTest, EveryPartButTheHeaderMayBeMissing)
{
    EXPECT_EQ(Read(ShellLinkFile().Bytes()), ShellLink());
    EXPECT_EQ(Read(ShellLinkFile {.relativePath = u".\\été.txt"_s}.Bytes()),
        (ShellLink {.localBasePath = {}, .relativePath = u".\\été.txt"_s}));
    EXPECT_EQ(Read(ShellLinkFile {.localBasePath = "C:\\a"}.Bytes()),
        (ShellLink {.localBasePath = u"C:\\a"_s, .relativePath = {}}));
    EXPECT_EQ(Read(ShellLinkFile {.idList = "x", .name = u"n"_s}.Bytes()), ShellLink());
}

TEST(ShellLinkTest, TextsMayHaveOneByteACharacter)
{
    EXPECT_EQ(Read(ShellLinkFile {.relativePath = u".\\caf\u00E9"_s, .isUnicode = false}.Bytes()),
        (ShellLink {.localBasePath = {}, .relativePath = u".\\caf\u00E9"_s}));
}

TEST(ShellLinkTest, TheLocalPathHasItsSuffixAndPrefersItsWideForm)
{
    EXPECT_EQ(Read(ShellLinkFile {.localBasePath = "C:\\", .commonPathSuffix = "d\\a"}.Bytes()),
        (ShellLink {.localBasePath = u"C:\\d\\a"_s, .relativePath = {}}));
    const ShellLinkFile both {.localBasePath = "C:\\?", .localBasePathUnicode = u"C:\\\u0416"_s};
    EXPECT_EQ(
        Read(both.Bytes()), (ShellLink {.localBasePath = u"C:\\\u0416"_s, .relativePath = {}}));
}

TEST(ShellLinkTest, ATextEndsAtItsFirstNul)
{
    const QString relative = u"a.txt"_s + QChar::Null + u"rest"_s;
    EXPECT_EQ(Read(ShellLinkFile {.relativePath = relative}.Bytes()),
        (ShellLink {.localBasePath = {}, .relativePath = u"a.txt"_s}));
}

TEST(ShellLinkTest, OtherBytesAreNoLink)
{
    EXPECT_EQ(Read(""), std::nullopt);
    EXPECT_EQ(Read(std::string(200, '\0')), std::nullopt);
    for (const std::size_t damaged : {0U, 3U, 4U, 7U, 12U, 19U}) {
        std::string bytes = FullLink().Bytes();
        bytes[damaged] ^= 0x40;
        EXPECT_EQ(Read(bytes), std::nullopt) << damaged;
    }
}

TEST(ShellLinkTest, ALinkThatEndsTooEarlyIsNone)
{
    const std::string bytes = FullLink().Bytes();
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_EQ(Read(bytes.substr(0, length)), std::nullopt) << length;
    }
    EXPECT_NE(Read(bytes + "more"), std::nullopt);
}

TEST(ShellLinkTest, OffsetsOutsideTheirPartTellNoPath)
{
    ShellLinkFile file = FullLink();
    for (const std::uint32_t offset : {0U, 10'000U, 0xFFFFFFFFU}) {
        file.localBasePathOffset = offset;
        EXPECT_EQ(
            Read(file.Bytes()), (ShellLink {.localBasePath = {}, .relativePath = u"..\\a.txt"_s}))
            << offset;
    }
    file.localBasePathOffset.reset();
    file.infoSize = 28; // the offsets lead past the part, into the texts
    file.relativePath.clear();
    file.name.clear();
    EXPECT_EQ(Read(file.Bytes()), ShellLink());
    file.infoSize = 0xFFFFFFFF;
    EXPECT_EQ(Read(file.Bytes()), std::nullopt);
}

TEST(ShellLinkTest, AnInfoShorterThanItsLengthFieldIsPassed)
{
    ShellLinkFile file {.localBasePath = "C:\\a"};
    file.infoSize = 0;
    EXPECT_EQ(Read(file.Bytes()), ShellLink());
}
