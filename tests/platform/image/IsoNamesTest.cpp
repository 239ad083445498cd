// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/IsoNames.h"

#include "image/names/PlainLetters.h"
#include "tests/platform/image/NamesBench.h"

#include <algorithm>
#include <set>

namespace velmora::test {

using image::IsoNames;
using image::NameOf;
using image::PlainLetters;

namespace {

const IsoNames kLong {IsoNames::Length::ThirtyOne};
const IsoNames kShort {IsoNames::Length::EightDotThree};

std::string FileForm(std::string_view name) { return kLong.Form(name, NameOf::File); }

std::string DirectoryForm(std::string_view name) { return kLong.Form(name, NameOf::Directory); }

} // namespace

TEST(IsoNamesTest, LettersBecomeUpperCase) { EXPECT_EQ(FileForm("read.me"), "READ.ME"); }

TEST(IsoNamesTest, FileWithoutExtensionKeepsItsDot)
{
    EXPECT_EQ(FileForm("makefile"), "MAKEFILE."); // ECMA-119 7.5.1
}

TEST(IsoNamesTest, DirectoryHasNoDot)
{
    EXPECT_EQ(DirectoryForm("docs"), "DOCS");
    EXPECT_EQ(DirectoryForm("v1.0"), "V1_0"); // 7.6
}

TEST(IsoNamesTest, OnlyTheLastDotStays)
{
    EXPECT_EQ(FileForm("a.b.c"), "A_B.C");
    EXPECT_EQ(FileForm("archive.tar.gz"), "ARCHIVE_TAR.GZ");
}

TEST(IsoNamesTest, LeadingDotIsNoSeparator)
{
    EXPECT_EQ(FileForm(".profile"), "_PROFILE.");
    EXPECT_EQ(FileForm(".config.bak"), "_CONFIG.BAK");
    EXPECT_EQ(DirectoryForm(".config"), "_CONFIG");
}

TEST(IsoNamesTest, TrailingDotLeavesAnEmptyExtension)
{
    EXPECT_EQ(FileForm("etc."), "ETC.");
    EXPECT_EQ(FileForm("..."), "__.");
}

TEST(IsoNamesTest, AccentsAreTakenOff)
{
    EXPECT_EQ(FileForm("Été.txt"), "ETE.TXT");
    EXPECT_EQ(FileForm("E\u0301te\u0301.txt"), "ETE.TXT"); // combining accents
    EXPECT_EQ(FileForm("Œuvre"), "OEUVRE.");
    EXPECT_EQ(FileForm("straße"), "STRASSE.");
    EXPECT_EQ(FileForm("Łódź"), "LODZ.");
}

TEST(IsoNamesTest, NameOfAccentsAloneIsNotEmpty)
{
    EXPECT_EQ(FileForm("\u0301"), "_.");
    EXPECT_EQ(DirectoryForm("\u0301"), "_");
}

TEST(IsoNamesTest, EveryOtherCharacterIsOneUnderscore)
{
    EXPECT_EQ(FileForm("a b+c.d-e"), "A_B_C.D_E");
    EXPECT_EQ(FileForm("日本.txt"), "__.TXT");
    EXPECT_EQ(FileForm("😀"), "_.");
    EXPECT_EQ(FileForm("a\xFF\xFE"), "A__."); // bytes that are no character
}

TEST(IsoNamesTest, NameAndExtensionTogetherHave30Characters)
{
    EXPECT_EQ(FileForm(Repeated(30, 'a')), Repeated(30, 'A') + "."); // 7.5.1
    EXPECT_EQ(FileForm(Repeated(31, 'a')), Repeated(30, 'A') + ".");
    EXPECT_EQ(FileForm(Repeated(27, 'a') + ".txt"), Repeated(27, 'A') + ".TXT");
    EXPECT_EQ(FileForm(Repeated(28, 'a') + ".txt"), Repeated(27, 'A') + ".TXT");
    EXPECT_EQ(FileForm("x." + Repeated(40, 'e')), "X." + Repeated(12, 'E'));
    EXPECT_EQ(FileForm(Repeated(40, 'x') + "." + Repeated(40, 'e')),
        Repeated(18, 'X') + "." + Repeated(12, 'E'));
}

TEST(IsoNamesTest, DirectoryHas31Characters)
{
    EXPECT_EQ(DirectoryForm(Repeated(31, 'a')), Repeated(31, 'A')); // 7.6.3
    EXPECT_EQ(DirectoryForm(Repeated(32, 'a')), Repeated(31, 'A'));
}

TEST(IsoNamesTest, Level1HasEightAndThreeCharacters)
{
    EXPECT_EQ(kShort.Form("documents.html", NameOf::File), "DOCUMENT.HTM"); // 10.1
    EXPECT_EQ(kShort.Form("12345678.123", NameOf::File), "12345678.123");
    EXPECT_EQ(kShort.Form("documents", NameOf::Directory), "DOCUMENT");
}

TEST(IsoNamesTest, NumberStandsBeforeTheExtensionAndTakesItsRoomFromTheName)
{
    EXPECT_EQ(kShort.Numbered("documents.html", NameOf::File, 1), "DOCUME_1.HTM");
    EXPECT_EQ(kShort.Numbered("documents.html", NameOf::File, 1000), "DOC_1000.HTM");
    EXPECT_EQ(kLong.Numbered("a.txt", NameOf::File, 12), "A_12.TXT");
    EXPECT_EQ(kLong.Numbered(Repeated(40, 'a'), NameOf::File, 9), Repeated(28, 'A') + "_9.");
    EXPECT_EQ(kLong.Numbered(Repeated(40, 'a'), NameOf::Directory, 10), Repeated(28, 'A') + "_10");
}

TEST(IsoNamesTest, NameIsKeptOnlyWhenItReadsTheSame)
{
    EXPECT_TRUE(kLong.IsKept("READ.ME", "READ.ME"));
    EXPECT_TRUE(kLong.IsKept("MAKEFILE.", "MAKEFILE"));
    EXPECT_FALSE(kLong.IsKept("READ.ME", "read.me"));
    EXPECT_FALSE(kLong.IsKept("ETC.", "ETC."));
}

using IsoClashesTest = NamesBench;

TEST_F(IsoClashesTest, NameThatIsLegalAsItIsKeepsIt)
{
    AddFiles({"a.txt", "á.txt", "A.TXT"});
    EXPECT_EQ(NamesUnder(kLong),
        (Names {{"A.TXT", "A.TXT"}, {"a.txt", "A_1.TXT"}, {"á.txt", "A_2.TXT"}}));
}

TEST_F(IsoClashesTest, NameThatIsLegalButForItsCaseComesBeforeThoseThatAreNot)
{
    AddFiles({".x", "_x", "a b", "a_b"});
    EXPECT_EQ(NamesUnder(kLong),
        (Names {{"_x", "_X"}, {".x", "_X_1"}, {"a_b", "A_B"}, {"a b", "A_B_1"}}));
}

TEST_F(IsoClashesTest, NumberIsNoOtherNamesNearestForm)
{
    AddFiles({"a", "A", "a_1", "è", "é", "é_1"});
    EXPECT_EQ(NamesUnder(kLong),
        (Names {
            {"A", "A"}, {"a", "A_2"}, {"a_1", "A_1"}, {"è", "E"}, {"é", "E_2"}, {"é_1", "E_1"}}));
}

TEST_F(IsoClashesTest, NumberThatIsTakenIsPassedOver)
{
    AddFiles({"A.TXT", "A_1.TXT", "a.txt"});
    EXPECT_EQ(NamesUnder(kLong),
        (Names {{"A.TXT", "A.TXT"}, {"A_1.TXT", "A_1.TXT"}, {"a.txt", "A_2.TXT"}}));
}

TEST_F(IsoClashesTest, FileAndDirectoryOfOneNameAreTwo)
{
    AddDirectory("x");
    AddFiles({"X"});
    EXPECT_EQ(NamesUnder(kLong), (Names {{"X", "X"}, {"x", "X_1"}}));
}

TEST_F(IsoClashesTest, TrailingDotIsNoDifference)
{
    AddFiles({"ETC", "ETC."});
    EXPECT_EQ(NamesUnder(kLong), (Names {{"ETC", "ETC"}, {"ETC.", "ETC_1"}}));
}

TEST_F(IsoClashesTest, ResultDoesNotDependOnTheOrderOfTheFolder)
{
    std::vector<std::string> names {"b c", "b-c", "b+c", "B_C", "b.c", "b_1c", "B_C_1", "é", "è"};
    AddFiles(names);
    const Names forwards = NamesUnder(kLong);
    std::reverse(names.begin(), names.end());
    tree = std::make_shared<image::SourceTree>(kMoment);
    AddFiles(names);

    EXPECT_EQ(NamesUnder(kLong), forwards);
    EXPECT_EQ(forwards.at("B_C"), "B_C");
    EXPECT_EQ(forwards.at("b c"), "B_C_2"); // B_C_1 is another file's own name
    EXPECT_EQ(forwards.at("b+c"), "B_C_3");
    EXPECT_EQ(forwards.at("b-c"), "B_C_4");
}

TEST_F(IsoClashesTest, TwoThousandClashesAreToldApart)
{
    std::vector<std::string> sources;
    for (int i = 1000; i < 3000; ++i) {
        sources.push_back("documents of mine " + std::to_string(i) + ".text");
    }
    AddFiles(sources);

    const Names names = NamesUnder(kShort);

    std::set<std::string> distinct;
    for (const auto& [source, name] : names) {
        distinct.insert(name);
        EXPECT_LE(name.size(), 12U) << name;
    }
    EXPECT_EQ(distinct.size(), 2000U);
    EXPECT_EQ(names.at(sources[0]), "DOCUMENT.TEX");
    EXPECT_EQ(names.at(sources[1]), "DOCUME_1.TEX");
    EXPECT_EQ(names.at(sources[1999]), "DOC_1999.TEX");
}

TEST(IsoNamesTest, PlainLettersOfTheLatinTables)
{
    EXPECT_STREQ(PlainLetters(U'À'), "A"); // U+00C0, the first
    EXPECT_STREQ(PlainLetters(U'×'), "_");
    EXPECT_STREQ(PlainLetters(U'Þ'), "TH");
    EXPECT_STREQ(PlainLetters(U'ß'), "ss");
    EXPECT_STREQ(PlainLetters(U'é'), "e");
    EXPECT_STREQ(PlainLetters(U'÷'), "_");
    EXPECT_STREQ(PlainLetters(U'ÿ'), "y");
    EXPECT_STREQ(PlainLetters(U'Ą'), "A");
    EXPECT_STREQ(PlainLetters(U'Đ'), "D");
    EXPECT_STREQ(PlainLetters(U'ğ'), "g");
    EXPECT_STREQ(PlainLetters(U'ı'), "i");
    EXPECT_STREQ(PlainLetters(U'Ĳ'), "IJ");
    EXPECT_STREQ(PlainLetters(U'ĸ'), "k");
    EXPECT_STREQ(PlainLetters(U'ł'), "l");
    EXPECT_STREQ(PlainLetters(U'ŉ'), "n");
    EXPECT_STREQ(PlainLetters(U'œ'), "oe");
    EXPECT_STREQ(PlainLetters(U'ş'), "s");
    EXPECT_STREQ(PlainLetters(U'ű'), "u");
    EXPECT_STREQ(PlainLetters(U'Ÿ'), "Y");
    EXPECT_STREQ(PlainLetters(U'ž'), "z");
    EXPECT_STREQ(PlainLetters(0x17F), "s"); // the last
    EXPECT_STREQ(PlainLetters(0x300), "");
    EXPECT_STREQ(PlainLetters(0x36F), "");
    EXPECT_EQ(PlainLetters(0xBF), nullptr);
    EXPECT_EQ(PlainLetters(0x180), nullptr);
    EXPECT_EQ(PlainLetters(0x370), nullptr);
}

} // namespace velmora::test
