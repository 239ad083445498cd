// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/JolietNames.h"

#include "tests/platform/image/NamesBench.h"

namespace velmora::test {

using image::JolietNames;
using image::NameOf;

namespace {

const JolietNames kUsual {JolietNames::kUsualLength};
const JolietNames kPaper {JolietNames::kPaperLength};

std::string Readable(const JolietNames& rules, std::string_view name)
{
    return rules.Readable(rules.Form(name, NameOf::File));
}

} // namespace

TEST(JolietNamesTest, NamesAreUtf16WithTheHighByteFirst)
{
    EXPECT_EQ(Hex(kUsual.Form("aé.Ω", NameOf::File)), "00 61 00 E9 00 2E 03 A9");
    EXPECT_EQ(Hex(kUsual.Form("😀", NameOf::File)), "D8 3D DE 00");
}

TEST(JolietNamesTest, CaseBlanksAndDotsAreKept)
{
    EXPECT_EQ(Readable(kUsual, "My Files. v1.0 "), "My Files. v1.0 ");
}

TEST(JolietNamesTest, ForbiddenCharactersBecomeUnderscores)
{
    EXPECT_EQ(Readable(kUsual, "a*b/c:d;e?f\\g"), "a_b_c_d_e_f_g");
    EXPECT_EQ(Readable(kUsual, "\x01\x1F\x7F"), "__\x7F"); // only U+0000 to U+001F
    EXPECT_EQ(Readable(kUsual, "\uFEFFa\uFFFE"), "_a_");
}

TEST(JolietNamesTest, ByteThatIsNoCharacterBecomesAnUnderscore)
{
    EXPECT_EQ(Readable(kUsual, "a\xE9z"), "a_z");
}

TEST(JolietNamesTest, NameHas103UnitsAtMost)
{
    EXPECT_EQ(Readable(kUsual, Repeated(103, 'a')), Repeated(103, 'a'));
    EXPECT_EQ(Readable(kUsual, Repeated(104, 'a')), Repeated(103, 'a'));
    EXPECT_EQ(Readable(kUsual, Repeated(110, 'a') + ".txt"), Repeated(99, 'a') + ".txt");
}

TEST(JolietNamesTest, NameHas64UnitsByThePaper)
{
    EXPECT_EQ(Readable(kPaper, Repeated(64, 'a')), Repeated(64, 'a'));
    EXPECT_EQ(Readable(kPaper, Repeated(65, 'a')), Repeated(64, 'a'));
    EXPECT_EQ(Readable(kPaper, Repeated(61, 'a') + ".txt"), Repeated(60, 'a') + ".txt");
}

TEST(JolietNamesTest, ExtensionOfUpTo16CharactersStaysWhole)
{
    const std::string fifteen = Repeated(15, 'e'); // 16 with its dot
    EXPECT_EQ(
        Readable(kPaper, Repeated(64, 'a') + "." + fifteen), Repeated(48, 'a') + "." + fifteen);
    EXPECT_EQ(Readable(kPaper, Repeated(64, 'a') + "." + fifteen + "e"), Repeated(64, 'a'));
}

TEST(JolietNamesTest, PairOfSurrogatesIsNeverSplit)
{
    EXPECT_EQ(Readable(kPaper, Repeated(62, 'a') + "😀"), Repeated(62, 'a') + "😀");
    EXPECT_EQ(Readable(kPaper, Repeated(63, 'a') + "😀"), Repeated(63, 'a'));
    EXPECT_EQ(Readable(kPaper, Repeated(59, 'a') + "😀.txt"), Repeated(59, 'a') + ".txt");
    EXPECT_EQ(kPaper.Readable(kPaper.Numbered(Repeated(61, 'a') + "😀", NameOf::File, 1)),
        Repeated(61, 'a') + "_1"); // 61, half a pair, 2
}

TEST(JolietNamesTest, NumberStandsBeforeTheExtension)
{
    EXPECT_EQ(kUsual.Readable(kUsual.Numbered("a.txt", NameOf::File, 7)), "a_7.txt");
    EXPECT_EQ(kPaper.Readable(kPaper.Numbered(Repeated(80, 'a') + ".txt", NameOf::File, 12)),
        Repeated(57, 'a') + "_12.txt");
}

using JolietClashesTest = NamesBench;

TEST_F(JolietClashesTest, DotsAndBlanksAtTheEndAreNoDifference)
{
    AddFiles({"dot", "dot.", "dot ", "dot. ."}); // readers drop them
    const Names names = NamesUnder(kUsual);

    EXPECT_EQ(names.at("dot"), "dot");
    EXPECT_EQ(names.at("dot "), "dot _1");
    EXPECT_EQ(names.at("dot."), "dot_1.");
    EXPECT_EQ(names.at("dot. ."), "dot. _1.");
}

TEST_F(JolietClashesTest, NamesOfDotsAndBlanksAloneAreToldApart)
{
    AddFiles({"...", " "});
    const Names names = NamesUnder(kUsual);

    EXPECT_EQ(names.at(" "), " ");
    EXPECT_EQ(names.at("..."), ".._1.");
}

TEST_F(JolietClashesTest, CaseIsADifference)
{
    AddFiles({"a", "A"});
    EXPECT_EQ(NamesUnder(kUsual), (Names {{"A", "A"}, {"a", "a"}}));
}

TEST_F(JolietClashesTest, NamesThatBecomeOneByReplacementAreToldApart)
{
    AddFiles({"a_b", "a:b", "a?b"});
    EXPECT_EQ(NamesUnder(kUsual), (Names {{"a_b", "a_b"}, {"a:b", "a_b_1"}, {"a?b", "a_b_2"}}));
}

TEST_F(JolietClashesTest, NamesThatBecomeOneByCuttingAreToldApart)
{
    const std::string stem = Repeated(120, 'x');
    AddFiles({stem + "1.txt", stem + "2.txt"});
    EXPECT_EQ(NamesUnder(kUsual),
        (Names {{stem + "1.txt", Repeated(99, 'x') + ".txt"},
            {stem + "2.txt", Repeated(97, 'x') + "_1.txt"}}));
}

} // namespace velmora::test
