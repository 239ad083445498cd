// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/UdfNames.h"

#include "tests/platform/image/NamesBench.h"

namespace velmora::test {

using image::CompressedUnicode;
using image::NameOf;
using image::UdfNames;

namespace {

const UdfNames kRules;

std::string Readable(std::string_view name)
{
    return kRules.Readable(kRules.Form(name, NameOf::File));
}

std::string Repeated(std::size_t count, std::string_view text)
{
    std::string all;
    for (std::size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

} // namespace

TEST(UdfNamesTest, CharactersBelow256TakeOneByte)
{
    EXPECT_EQ(Hex(CompressedUnicode("Az")), "08 41 7A"); // UDF 2.1.1
    EXPECT_EQ(Hex(CompressedUnicode("ÿ")), "08 FF");
    EXPECT_EQ(Hex(CompressedUnicode("aé")), "08 61 E9");
}

TEST(UdfNamesTest, OneCharacterFrom256OnMakesAllTakeTwo)
{
    EXPECT_EQ(Hex(CompressedUnicode("Ā")), "10 01 00");
    EXPECT_EQ(Hex(CompressedUnicode("aéĀ")), "10 00 61 00 E9 01 00");
    EXPECT_EQ(Hex(CompressedUnicode("Āa")), "10 01 00 00 61");
    EXPECT_EQ(Hex(CompressedUnicode("😀")), "10 D8 3D DE 00");
}

TEST(UdfNamesTest, BytesThatAreNoCharacterBecomeUnderscores)
{
    EXPECT_EQ(Hex(CompressedUnicode("a\xFFz")), "08 61 5F 7A");
    EXPECT_EQ(Hex(CompressedUnicode("\xC3")), "08 5F");
    EXPECT_EQ(Hex(CompressedUnicode("\uFEFF\uFFFE")), "08 5F 5F"); // excluded by UDF 2.1.1
}

TEST(UdfNamesTest, AllOtherCharactersAreKept)
{
    EXPECT_EQ(Readable("a*b:c;d?e\\f \x01."), "a*b:c;d?e\\f \x01.");
}

TEST(UdfNamesTest, NameHas254BytesAtMost)
{
    const std::string longest = Repeated(254, "a");

    EXPECT_EQ(kRules.Form(longest, NameOf::File).size(), 255U);
    EXPECT_EQ(Readable(longest), longest);
    EXPECT_EQ(Readable(Repeated(255, "a")), Repeated(249, "a") + "#789D"); // UDF 4.2.2.1
}

TEST(UdfNamesTest, CutNameKeepsItsExtension)
{
    EXPECT_EQ(Readable(Repeated(251, "a") + ".txt"), Repeated(245, "a") + "#9103.txt");
}

TEST(UdfNamesTest, NameOfTwoByteCharactersHas127)
{
    const std::string longest = Repeated(127, "Ω");

    EXPECT_EQ(kRules.Form(longest, NameOf::File).size(), 255U);
    EXPECT_EQ(Readable(longest), longest);
    EXPECT_EQ(Readable(longest + "a"), Repeated(122, "Ω") + "#4199");
}

TEST(UdfNamesTest, LatinNameOf255BytesOfUtf8FitsIntoOneByteCharacters)
{
    EXPECT_EQ(Readable(Repeated(127, "é") + "a"), Repeated(127, "é") + "a");
}

TEST(UdfNamesTest, CutNameHasNoHalfPair)
{
    // 129 units; of the 122 beside the tail the last two are a whole pair.
    EXPECT_EQ(Readable(Repeated(120, "a") + "😀😀😀😀é"), Repeated(120, "a") + "😀#5BCE");
    // 128 units; here a pair would be split after the 122nd.
    EXPECT_EQ(Readable("a" + Repeated(63, "😀") + "b"), "a" + Repeated(60, "😀") + "#4DCA");
}

TEST(UdfNamesTest, NumberStandsBeforeTheExtension)
{
    EXPECT_EQ(kRules.Readable(kRules.Numbered("a.txt", NameOf::File, 3)), "a_3.txt");
    EXPECT_EQ(kRules.Readable(kRules.Numbered("Ω.txt", NameOf::File, 3)), "Ω_3.txt");
}

using UdfClashesTest = NamesBench;

TEST_F(UdfClashesTest, NamesThatDifferInOneByteStayApart)
{
    AddFiles({"a", "A", "a.", "a ", "á"});
    const Names names = NamesUnder(kRules);

    for (const auto& [source, name] : names) {
        EXPECT_EQ(name, source);
    }
    EXPECT_EQ(names.size(), 5U);
}

TEST_F(UdfClashesTest, NamesOfUndecodableBytesAreToldApart)
{
    AddFiles({"a_", "a\xFE", "a\xFF"});
    EXPECT_EQ(NamesUnder(kRules), (Names {{"a_", "a_"}, {"a\xFE", "a__1"}, {"a\xFF", "a__2"}}));
}

} // namespace velmora::test
