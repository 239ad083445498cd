// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/PathText.h"
#include "tests/support/PathLiterals.h"

#include <gtest/gtest.h>

#include <array>
#include <type_traits>

using namespace velmora;
using namespace Qt::StringLiterals;
using text::ToNativePath;
using text::ToProgramPath;

namespace {

QString Units(std::initializer_list<char16_t> units)
{
    QString text;
    for (const char16_t unit : units) {
        text += QChar(unit);
    }
    return text;
}

} // namespace

TEST(PathTextTest, TheTwoSlashesAreExchangedBothWays)
{
    EXPECT_EQ(ToProgramPath("/home/u/a\\b"), u"\\home\\u\\a/b"_s);
    EXPECT_EQ(ToNativePath(u"\\home\\u\\a/b"_s), "/home/u/a\\b");
    EXPECT_EQ(ToProgramPath("/"), u"\\"_s);
    EXPECT_EQ(ToProgramPath(""), QString());
    EXPECT_EQ(text::ExchangeSlashes(u"AC\\DC/x"_s), u"AC/DC\\x"_s);
}

TEST(PathTextTest, WellFormedUtf8ReadsAsItsCharacters)
{
    EXPECT_EQ(ToProgramPath("\xC3\xA9t\xC3\xA9"), u"été"_s);
    EXPECT_EQ(ToProgramPath("\xE2\x82\xAC"), u"€"_s);
    EXPECT_EQ(ToProgramPath("\xF0\x9F\x92\xBF"), Units({0xD83D, 0xDCBF}));
    EXPECT_EQ(ToNativePath(Units({0xD83D, 0xDCBF})), "\xF0\x9F\x92\xBF");
    EXPECT_EQ(ToNativePath(u"été€"_s), "\xC3\xA9t\xC3\xA9\xE2\x82\xAC");
}

TEST(PathTextTest, BytesThatAreNotUtf8TravelAsLoneSurrogates)
{
    EXPECT_EQ(ToProgramPath("caf\xE9"), u"caf"_s + Units({0xDCE9}));
    EXPECT_EQ(ToProgramPath("\x80\xFF"), Units({0xDC80, 0xDCFF}));
    EXPECT_EQ(ToNativePath(Units({0xDC80, 0xDCE9, 0xDCFF})), "\x80\xE9\xFF");
}

TEST(PathTextTest, SequencesThatAreNotWellFormedTravelByteByByte)
{
    struct Row {
        std::string bytes;
        QString text;
    };
    const std::array rows {
        Row {"\xC0\x80", Units({0xDCC0, 0xDC80})},                         // overlong NUL
        Row {"\xC0\xAF", Units({0xDCC0, 0xDCAF})},                         // overlong slash
        Row {"\xE0\x9F\xBF", Units({0xDCE0, 0xDC9F, 0xDCBF})},             // overlong U+07FF
        Row {"\xF0\x8F\xBF\xBF", Units({0xDCF0, 0xDC8F, 0xDCBF, 0xDCBF})}, // overlong U+FFFF
        Row {"\xED\xA0\x80", Units({0xDCED, 0xDCA0, 0xDC80})},             // U+D800
        Row {"\xED\xB2\x80", Units({0xDCED, 0xDCB2, 0xDC80})},             // U+DC80
        Row {"\xED\xA0\xBD\xED\xB2\xBF", // a pair of surrogates (CESU-8)
            Units({0xDCED, 0xDCA0, 0xDCBD, 0xDCED, 0xDCB2, 0xDCBF})},
        Row {"\xF4\x90\x80\x80", Units({0xDCF4, 0xDC90, 0xDC80, 0xDC80})}, // U+110000
        Row {"\xE2\x82", Units({0xDCE2, 0xDC82})},                         // cut short
        Row {"\xE2\x82/", Units({0xDCE2, 0xDC82, u'\\'})}, // cut short by a separator
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ToProgramPath(row.bytes), row.text);
        EXPECT_EQ(ToNativePath(row.text), row.bytes);
    }
}

TEST(PathTextTest, TheLimitsOfEachLengthAreWellFormed)
{
    for (const std::string bytes : {"\x7F",
             "\xC2\x80",
             "\xDF\xBF",
             "\xE0\xA0\x80",
             "\xED\x9F\xBF",
             "\xEE\x80\x80",
             "\xEF\xBF\xBF",
             "\xF0\x90\x80\x80",
             "\xF4\x8F\xBF\xBF"}) {
        const QString text = ToProgramPath(bytes);
        EXPECT_EQ(text, QString::fromUtf8(bytes.c_str()));
        EXPECT_EQ(text::ForTheEye(text), text);
        EXPECT_EQ(ToNativePath(text), bytes);
    }
}

TEST(PathTextTest, ATravellingByteBehindAPairStaysApart)
{
    const std::string bytes = "\xF0\x9F\x92\xBF\x80";
    EXPECT_EQ(ToProgramPath(bytes), Units({0xD83D, 0xDCBF, 0xDC80}));
    EXPECT_EQ(ToNativePath(Units({0xD83D, 0xDCBF, 0xDC80})), bytes);
}

TEST(PathTextTest, OtherLoneSurrogatesKeepTheirNumberInTheBytes)
{
    EXPECT_EQ(ToNativePath(Units({0xD800})), "\xED\xA0\x80");
    EXPECT_EQ(ToNativePath(Units({0xDC7F})), "\xED\xB1\xBF");
    EXPECT_EQ(ToNativePath(Units({0xDD00, u'a'})),
        "\xED\xB4\x80"
        "a");
}

TEST(PathTextTest, BlanksAtTheEndOfANameTravelToo)
{
    const QChar blank(0xDC20);
    EXPECT_EQ(ToProgramPath("/a b/trail  "), u"\\a b\\trail"_s + blank + blank);
    EXPECT_EQ(
        ToProgramPath("/ / x/trail /b"), u"\\"_s + blank + u"\\ x\\trail"_s + blank + u"\\b"_s);
    EXPECT_EQ(ToProgramPath("a\\ "), u"a/"_s + blank);
    for (const std::string path : {"/a b/trail  ", "/ / x/trail /b", " ", "", "/x /", "a\\ "}) {
        EXPECT_EQ(ToNativePath(ToProgramPath(path)), path);
    }
    EXPECT_EQ(text::MachinePathForTheEye(ToProgramPath("/x /trail ")), u"/x /trail "_s);
}

TEST(PathTextTest, APathOnTheDiscLeadsToTheImageWritersAndBack)
{
    EXPECT_EQ(text::ToDiscPath("Photos/a\\b"), text::DiscPath(u"Photos\\a/b"_s));
    EXPECT_EQ(text::ToDiscPath("trail "), text::DiscPath(u"trail"_s + QChar(0xDC20)));
    for (const std::string path : {"Photos/a\\b", "caf\xE9", "a b/trail  ", ""}) {
        EXPECT_EQ(text::ToImagePath(text::ToDiscPath(path)), path);
    }
}

TEST(PathTextTest, ATypedPathIsThatOfItsBytes)
{
    EXPECT_EQ(text::FromTypedPath(u"/home/été/trail "_s),
        ToProgramPath(text::NativePath("/home/été/trail ")));
    EXPECT_EQ(text::FromTypedPath(u"a\\b"_s), text::ProgramPath(u"a/b"_s));
}

TEST(PathTextTest, APathOfQtIsThatOfItsName)
{
    EXPECT_EQ(text::ToQtPath(text::ProgramPath(u"\\home\\a/b"_s)), u"/home/a\\b"_s);
    EXPECT_EQ(text::ToQtPath(text::NativePath("/home/été ")), u"/home/été "_s);
    for (const QString& path : {u"/home/été/a\\b/trail "_s, u"/"_s, u"name"_s, QString()}) {
        EXPECT_EQ(text::ToQtPath(text::FromQtPath(path)), path);
    }
}

TEST(PathTextTest, ATextThatIsNoPathKeepsItsSlashesAndBlanks)
{
    EXPECT_EQ(text::ToText("AC/DC \\ "), u"AC/DC \\ "_s);
    EXPECT_EQ(text::ToText("caf\xE9"), u"caf"_s + Units({0xDCE9}));
}

TEST(ForTheEyeTest, UndecodableBytesReadAsReplacementCharacters)
{
    EXPECT_EQ(text::ForTheEye(ToProgramPath("caf\xE9\\b\xF0\x9F\x92\xBF")),
        u"caf\uFFFD/b"_s + Units({0xD83D, 0xDCBF}));
    EXPECT_EQ(text::ForTheEye(Units({0xD83D, u'a', 0xDC00})), u"\uFFFDa\uFFFD"_s);
}

TEST(ForTheEyeTest, AMachinePathReadsAsLinuxWritesItAndADiscPathWithBackslashes)
{
    const QString path = ToProgramPath("/home/u/caf\xE9");
    EXPECT_EQ(text::MachinePathForTheEye(path), u"/home/u/caf\uFFFD"_s);
    EXPECT_EQ(text::ForTheEye(u"Photos\\a.jpg"_s), u"Photos\\a.jpg"_s);
}

TEST(PathsTest, APathCrossesTheBorderAsItsTextDoes)
{
    const text::NativePath native("/home/u/a\\b caf\xE9");
    const text::ProgramPath path = ToProgramPath(native);
    EXPECT_EQ(path.Text(), ToProgramPath("/home/u/a\\b caf\xE9"));
    EXPECT_EQ(ToNativePath(path), native);
    EXPECT_EQ(text::MachinePathForTheEye(path), u"/home/u/a\\b caf\uFFFD"_s);
    EXPECT_STREQ(native.CStr(), native.Bytes().c_str());
}

TEST(PathsTest, NoTextBecomesAPathAndNoPathAnotherByItself)
{
    EXPECT_FALSE((std::is_convertible_v<QString, text::ProgramPath>));
    EXPECT_FALSE((std::is_convertible_v<text::ProgramPath, QString>));
    EXPECT_FALSE((std::is_convertible_v<std::string, text::NativePath>));
    EXPECT_FALSE((std::is_constructible_v<text::ProgramPath, text::NativePath>));
    EXPECT_FALSE((std::is_constructible_v<text::NativePath, text::ProgramPath>));
}

TEST(DiscPathTest, ItIsNoPathOfThisMachineAndADirectorysEndsInABackslash)
{
    EXPECT_FALSE((std::is_constructible_v<text::DiscPath, text::ProgramPath>));
    EXPECT_FALSE((std::is_constructible_v<text::ProgramPath, text::DiscPath>));
    EXPECT_FALSE((std::is_constructible_v<text::DiscPath, text::NativePath>));
    EXPECT_FALSE((std::is_convertible_v<QString, text::DiscPath>));
    EXPECT_TRUE(text::DiscPath(u"A\\B\\"_s).IsDirectory());
    EXPECT_FALSE(text::DiscPath(u"A\\B"_s).IsDirectory());
    EXPECT_FALSE(text::DiscPath().IsDirectory());
}
