// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/udf/UdfLink.h"

#include "tests/platform/image/ImageBench.h"

namespace velmora::test {

using image::PathComponents;

/// Path components (ECMA-167 4/14.16).
class PathComponentsTest : public testing::Test { };

TEST_F(PathComponentsTest, NamesAreCompressedUnicode)
{
    EXPECT_EQ(Hex(PathComponents("a/\u00E9")), "05 02 00 00 08 61 05 02 00 00 08 E9");
    EXPECT_EQ(Hex(PathComponents("\u65E5")), "05 03 00 00 10 65 E5");
}

TEST_F(PathComponentsTest, RootParentAndCurrentHaveNoName)
{
    EXPECT_EQ(Hex(PathComponents("/a")), "02 00 00 00 05 02 00 00 08 61");
    EXPECT_EQ(Hex(PathComponents("../.")), "03 00 00 00 04 00 00 00");
    EXPECT_EQ(Hex(PathComponents("/")), "02 00 00 00");
}

TEST_F(PathComponentsTest, NamesAreWhatTheFilesOfThatNameHave)
{
    EXPECT_EQ(Hex(PathComponents("caf\xE9")), "05 05 00 00 08 63 61 66 5F"); // not UTF-8
    EXPECT_EQ(PathComponents(std::string(300, 'x')).size(), 4U + 255);
}

TEST_F(PathComponentsTest, SlashesThatStandForNothingAreNotRecorded)
{
    EXPECT_EQ(Hex(PathComponents("a//b/")), Hex(PathComponents("a/b")));
}

/// Sectors: partition at 257, file set, terminator, root's entry 259, entries of "file" 260 and of
/// the links from 261 on.
class LinksInUdfTest : public ImageBench {
protected:
    LinksInUdfTest()
    {
        Choose(false, false, true);
        Write("top/file", "12345");
    }

    void Link(const std::string& text, const std::string& name) const
    {
        ASSERT_EQ(::symlink(text.c_str(), (folder / "top" / name).c_str()), 0) << name;
    }
};

TEST_F(LinksInUdfTest, EntryOfALinkHoldsItsPath)
{
    Link("../a", "link");
    Scan(folder / "top");

    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 261, 16 + 11, 1), "0C");           // ICB file type 12 (14.6.6)
    EXPECT_EQ(HexOf(image, 261, 34, 2), "03 00");             // the data themselves (14.6.8)
    EXPECT_EQ(HexOf(image, 261, 44, 6), "A5 14 00 00 01 00"); // all may read; one link
    EXPECT_EQ(NumberAt(image, 261 * kSector + 56, 8), 10U);   // information length
    EXPECT_EQ(NumberAt(image, 261 * kSector + 64, 8), 0U);    // blocks recorded
    EXPECT_EQ(NumberAt(image, 261 * kSector + 172, 4), 10U);  // length of what follows
    EXPECT_EQ(HexOf(image, 261, 176, 10), "03 00 00 00 05 02 00 00 08 61");
}

TEST_F(LinksInUdfTest, IdentifiersLeadToTheEntriesOfTheirLinks)
{
    Link("b", "a");
    Link("file", "z");
    Scan(folder / "top");

    const std::string image = Bytes();

    // The root's identifiers follow the four entries, in sector 263: its parent's 40 bytes, then
    // "a", "file" and "z" of 40, 44 and 40 bytes. Each has its block and unique id at 24 and 32.
    EXPECT_EQ(NumberAt(image, 263 * kSector + 40 + 24, 4), 261U - 257);
    EXPECT_EQ(NumberAt(image, 263 * kSector + 80 + 24, 4), 260U - 257);
    EXPECT_EQ(NumberAt(image, 263 * kSector + 124 + 24, 4), 262U - 257);
    EXPECT_EQ(NumberAt(image, 261 * kSector + 160, 8), 18U); // unique ids of the entries
    EXPECT_EQ(NumberAt(image, 262 * kSector + 160, 8), 19U);
    EXPECT_EQ(NumberAt(image, 64 * kSector + 40, 8), 23U); // the next one (3/10.10)
}

TEST_F(LinksInUdfTest, ExtendedEntryHoldsThePathAsWell)
{
    options.udfRevision = image::UdfRevision::Udf250;
    Link("a", "link");
    Scan(folder / "top");

    const std::string image = Bytes();

    const std::size_t entry = 320 + 4; // the metadata begin at 320
    EXPECT_EQ(HexOf(image, entry, 16 + 11, 1), "0C");
    EXPECT_EQ(HexOf(image, entry, 34, 2), "03 00");
    EXPECT_EQ(HexOf(image, entry, 216, 6), "05 02 00 00 08 61");
}

TEST_F(LinksInUdfTest, LinkToANameThatTookANumberLeadsToIt)
{
    Write("top/caf\xE8/a", "");
    Write("top/caf\xE9/b", ""); // both become "caf_"
    Link("caf\xE8/a", "to a");
    Link("../top/./caf\xE9/b", "leaving"); // out of the tree: unknown
    Link("caf\xE9/../caf\xE9/b", "to b");
    Scan(folder / "top");

    const std::string image = Bytes(); // entries: root, two folders, three files, three links
    const std::string caf = "63 61 66 5F";
    const std::string first = "05 05 00 00 08 " + caf;
    const std::string second = "05 07 00 00 08 " + caf + " 5F 31"; // "caf__1"

    EXPECT_EQ(HexOf(image, 266, 176, 9 + 6), first + " 05 02 00 00 08 61");
    EXPECT_EQ(HexOf(image, 267, 176, 11 + 4 + 11 + 6),
        second + " 03 00 00 00 " + second + " 05 02 00 00 08 62");
    EXPECT_EQ(Hex(Part(image, 265, 176, 40)).find("5F 5F 31"), std::string::npos);
}

TEST_F(LinksInUdfTest, RoomIsKeptForTheNumberOfANameThatMayTakeOne)
{
    EXPECT_EQ(image::MostOfPathComponents("ab/../c"), PathComponents("ab/../c").size());
    EXPECT_GE(image::MostOfPathComponents("a\xE9"),
        PathComponents("a\xE9",
            std::vector<std::string_view> {"\x08"
                                           "a__1"})
            .size());
}

TEST_F(LinksInUdfTest, LinkTooLongForAnEntryIsLeftOutAndTold)
{
    std::string text;
    for (int i = 0; i < 305; ++i)
        text += "a/"; // 6 bytes each: 1830 of 1832
    Link(text, "longest");
    Link(text + "a", "longer");
    Scan(folder / "top");

    const image::ImagePlan plan = Plan();

    ASSERT_EQ(plan.LeftOut().size(), 1U);
    EXPECT_EQ(plan.LeftOut().front().error.kind, image::ErrorKind::LinkTooLong);
    EXPECT_EQ(plan.LeftOut().front().error.path, "longer");
    EXPECT_EQ(plan.Links(), 1U);
    Bytes();
}

} // namespace velmora::test
