// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/VolumeNames.h"

#include "tests/platform/image/ImageBench.h"

namespace velmora::test {

using namespace image;

TEST(VolumeNamesTest, IsoNameIsDCharacters)
{
    EXPECT_EQ(VolumeNameIso9660("Été 2026.v1"), "ETE_2026_V1");
    EXPECT_EQ(VolumeNameIso9660("日本"), "__");
}

TEST(VolumeNamesTest, IsoNameHas32Characters)
{
    EXPECT_EQ(VolumeNameIso9660(std::string(32, 'a')), std::string(32, 'A'));
    EXPECT_EQ(VolumeNameIso9660(std::string(31, 'a') + "œ"), std::string(31, 'A') + "O");
}

TEST(VolumeNamesTest, NameHas1To32Units)
{
    EXPECT_FALSE(IsVolumeName(""));
    EXPECT_TRUE(IsVolumeName("a"));
    EXPECT_TRUE(IsVolumeName(std::string(32, 'a')));
    EXPECT_FALSE(IsVolumeName(std::string(33, 'a')));
    EXPECT_TRUE(IsVolumeName(std::string(30, 'a') + "😀"));
    EXPECT_FALSE(IsVolumeName(std::string(31, 'a') + "😀"));
}

TEST(VolumeNamesTest, ControlCharactersAndBrokenBytesAreNotAllowed)
{
    EXPECT_FALSE(IsVolumeName("a\tb"));
    EXPECT_FALSE(IsVolumeName("a\x7F"));
    EXPECT_FALSE(IsVolumeName("a\u0085"));
    EXPECT_TRUE(IsVolumeName("a\u00A0"));
    EXPECT_FALSE(IsVolumeName("a\xFF"));
    EXPECT_FALSE(IsVolumeName(std::string_view("a\0", 2)));
}

TEST(VolumeNamesTest, AnyTextHasANearestName)
{
    EXPECT_EQ(ToVolumeName("Photos d'été"), "Photos d'été");
    EXPECT_EQ(ToVolumeName(""), "NONAME");
    EXPECT_EQ(ToVolumeName("a\nb\xFF"), "a_b_");
    EXPECT_EQ(ToVolumeName(std::string(40, 'a')), std::string(32, 'a'));
    EXPECT_EQ(ToVolumeName(std::string(31, 'a') + "😀"), std::string(31, 'a'));
}

using ChangedNamesTest = ImageBench;

TEST_F(ChangedNamesTest, RockRidgeKeepsEveryName)
{
    AddFile("read me.txt", "");
    Choose(true, false, false);
    EXPECT_TRUE(Plan().ChangedNames().empty());
}

TEST_F(ChangedNamesTest, StrictImageListsWhatIsoChanged)
{
    AddDirectory("Sub");
    AddFile("Sub/read me.txt", "");
    AddFile("KEPT.TXT", "");
    Choose(true, false, false);
    options.strict = true;

    const std::vector<NameChange> changes = Plan().ChangedNames();

    ASSERT_EQ(changes.size(), 2U);
    EXPECT_EQ(changes[0].path, "Sub");
    EXPECT_EQ(changes[0].recorded, "SUB");
    EXPECT_EQ(changes[1].fileSystem, FileSystem::Iso9660);
    EXPECT_EQ(changes[1].path, "Sub/read me.txt");
    EXPECT_EQ(changes[1].recorded, "READ_ME.TXT");
}

TEST_F(ChangedNamesTest, EachFileSystemListsItsOwn)
{
    AddFile("a:b", "");
    AddFile("c\xFF", "");

    const std::vector<NameChange> changes = Plan().ChangedNames();

    ASSERT_EQ(changes.size(), 3U);
    EXPECT_EQ(changes[0].fileSystem, FileSystem::Joliet);
    EXPECT_EQ(changes[0].recorded, "a_b");
    EXPECT_EQ(changes[1].fileSystem, FileSystem::Joliet);
    EXPECT_EQ(changes[1].recorded, "c_");
    EXPECT_EQ(changes[2].fileSystem, FileSystem::Udf);
    EXPECT_EQ(changes[2].path, "c\xFF");
    EXPECT_EQ(changes[2].recorded, "c_");
}

TEST_F(ChangedNamesTest, AsManyAreListedOfEachFileSystemAsAreWanted)
{
    AddFile("a\xFF", "");
    AddFile("b\xFF", "");

    const std::vector<NameChange> changes = Plan().ChangedNames(1);

    ASSERT_EQ(changes.size(), 2U);
    EXPECT_EQ(changes[0].fileSystem, FileSystem::Joliet);
    EXPECT_EQ(changes[1].fileSystem, FileSystem::Udf);
}

} // namespace velmora::test
