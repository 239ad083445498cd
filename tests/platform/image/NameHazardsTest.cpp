// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/NameHazards.h"

#include "tests/platform/image/NamesBench.h"

#include <set>

namespace velmora::test {

using namespace image;

/// Names that a file system holds and some readers lose.
class NameHazardsTest : public NamesBench {
protected:
    std::vector<std::string> PathsOf(HazardKind kind) const
    {
        std::vector<std::string> paths;
        const ImagePlan plan = Plan();
        for (const HazardousName& hazard : plan.NameHazards()) {
            if (hazard.kind == kind) {
                paths.push_back(hazard.path);
            }
        }
        return paths;
    }

    /// That many nested folders, each with a name of that length.
    std::string AddFolders(std::size_t count, std::size_t length) const
    {
        std::string path;
        for (std::size_t i = 0; i < count; ++i) {
            path += (i == 0 ? "" : "/") + Repeated(length, 'd');
            AddDirectory(path);
        }
        return path;
    }
};

using Paths = std::vector<std::string>;

TEST_F(NameHazardsTest, OrdinaryNamesHaveNone)
{
    AddFiles({"a", "b.", "..c", "Été", "a b"});
    AddDirectory("A1");
    EXPECT_TRUE(Plan().NameHazards().empty());
}

TEST_F(NameHazardsTest, NamesThatDifferInCaseAreTwins)
{
    AddFiles({"a.txt", "A.TXT", "b", "É", "é", "ЖУК", "Жук"});
    AddDirectory("sub");
    ASSERT_TRUE(tree->AddFile("sub/B", Write("any", ""))); // in another folder
    EXPECT_EQ(PathsOf(HazardKind::CaseTwin), (Paths {"A.TXT", "a.txt", "É", "é", "ЖУК", "Жук"}));
}

TEST_F(NameHazardsTest, LettersOfOtherAlphabetsHaveTwinsAmongTheLatin)
{
    AddFiles({"300 k", "300 \u212A", "\xC3(", "\xC4("}); // the second is the kelvin sign
    EXPECT_EQ(PathsOf(HazardKind::CaseTwin), (Paths {"300 k", "300 \u212A"}));
}

TEST_F(NameHazardsTest, WhatIsNoLetterHasNoTwin)
{
    AddFiles({"[1]", "{1}", "^", "~", "@", "`", "long name, part 1", "long name, part 2"});
    EXPECT_TRUE(Plan().NameHazards().empty());
    AddFiles({"long name, PART 1"});
    EXPECT_EQ(PathsOf(HazardKind::CaseTwin), (Paths {"long name, PART 1", "long name, part 1"}));
}

TEST_F(NameHazardsTest, TwinsAreOnlyWhereWindowsReads)
{
    AddFiles({"a", "A", "..."});
    Choose(true, false, false);
    EXPECT_TRUE(Plan().NameHazards().empty()) << "Linux tells them apart, others see ISO 9660";
    Choose(true, true, false);
    EXPECT_EQ(PathsOf(HazardKind::CaseTwin), (Paths {"A", "a"}));
    Choose(false, false, true);
    EXPECT_EQ(PathsOf(HazardKind::CaseTwin), (Paths {"A", "a"}));
    EXPECT_EQ(PathsOf(HazardKind::DotsOnly), (Paths {"..."}));
}

TEST_F(NameHazardsTest, NamesThatAreTwinsOnlyOnceRecordedCount)
{
    AddFiles({"A?", "a_"}); // in Joliet "A_" and "a_"
    Choose(true, true, false);
    EXPECT_EQ(PathsOf(HazardKind::CaseTwin), (Paths {"A?", "a_"}));
    Choose(false, false, true);
    EXPECT_TRUE(Plan().NameHazards().empty());
}

TEST_F(NameHazardsTest, RockRidgeNamesHave253BytesForLinux)
{
    AddFiles({Repeated(253, 'x'), Repeated(254, 'y')});
    EXPECT_EQ(PathsOf(HazardKind::LongName), (Paths {Repeated(254, 'y')}));
    options.strict = true;
    EXPECT_EQ(PathsOf(HazardKind::LongName), Paths {}) << "no Rock Ridge";
}

TEST_F(NameHazardsTest, UdfPathsHave1023Bytes)
{
    Choose(false, false, true);
    const std::string deepest = AddFolders(4, 199); // each 1 + 199 bytes and a separator: 804
    const std::string file = Write("any", "");
    ASSERT_TRUE(tree->AddFile(deepest + "/" + Repeated(218, 'f'), file)); // 1 + 218
    EXPECT_TRUE(PathsOf(HazardKind::LongPath).empty());

    const std::string longer = deepest + "/" + Repeated(219, 'f');
    ASSERT_TRUE(tree->AddFile(longer, file));
    EXPECT_EQ(PathsOf(HazardKind::LongPath), Paths {longer});
    Choose(true, true, false);
    EXPECT_TRUE(PathsOf(HazardKind::LongPath).empty());
}

TEST_F(NameHazardsTest, EveryEntryBelowALongPathIsLost)
{
    Choose(false, false, true);
    EXPECT_EQ(AddFolders(7, 200).size(), 1406U);
    EXPECT_EQ(PathsOf(HazardKind::LongPath).size(), 2U); // the sixth has 6 * 202 - 1 bytes
}

TEST_F(NameHazardsTest, EachIsToldInWordsOfItsOwn)
{
    std::set<std::string> words;
    for (const HazardKind kind :
        {HazardKind::CaseTwin, HazardKind::DotsOnly, HazardKind::LongName, HazardKind::LongPath}) {
        words.insert(Describe(kind));
    }
    EXPECT_EQ(words.size(), 4U);
}

} // namespace velmora::test
