// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/image/UdfBench.h"

namespace velmora::test {

using namespace image;

namespace {

/// "D00000" to "D99999".
std::string Numbered(int i) { return "D" + std::to_string(100000 + i).substr(1); }

} // namespace

/// What a file system can't hold is left out of it, and reported.
class LimitsTest : public ImageBench {
protected:
    LimitsTest() { Choose(true, false, false); }

    struct Left {
        FileSystem fileSystem;
        ErrorKind kind;
        std::string path;
        bool operator==(const Left&) const = default;
    };

    std::vector<Left> LeftOut() const
    {
        std::vector<Left> all;
        const ImagePlan plan = Plan();
        for (const OmittedEntry& entry : plan.LeftOut()) {
            all.push_back({entry.fileSystem, entry.error.kind, entry.error.path});
        }
        return all;
    }
};

TEST_F(LimitsTest, StrictTreesHaveEightLevels)
{
    options.strict = true;
    std::string path = "A";
    AddDirectory(path);
    for (int level = 3; level <= 8; ++level) {
        path += "/A";
        AddDirectory(path);
    }
    AddFile(path + "/F", "");
    EXPECT_EQ(LeftOut(), std::vector<Left> {}); // ECMA-119 6.8.2.1: seven below the root

    AddDirectory(path + "/B");
    EXPECT_EQ(LeftOut(),
        (std::vector<Left> {{FileSystem::Iso9660, ErrorKind::TooDeep, "A/A/A/A/A/A/A/B"}}));

    options.strict = false;
    EXPECT_EQ(LeftOut(), std::vector<Left> {});
}

TEST_F(LimitsTest, Level1IsAlwaysStrict)
{
    options.isoLevel = IsoLevel::Level1;
    std::string path = "A";
    AddDirectory(path);
    for (int level = 3; level <= 9; ++level) {
        path += "/A";
        AddDirectory(path);
    }
    EXPECT_EQ(LeftOut(),
        (std::vector<Left> {{FileSystem::Iso9660, ErrorKind::TooDeep, "A/A/A/A/A/A/A/A"}}));
}

TEST_F(LimitsTest, StrictDepthDoesNotHoldForJolietAndUdf)
{
    options.strict = true;
    Choose(true, true, true);
    std::string path = "A";
    AddDirectory(path);
    for (int level = 3; level <= 12; ++level) {
        path += "/A";
        AddDirectory(path);
    }
    const std::vector<Left> left = LeftOut();
    ASSERT_EQ(left.size(), 4U) << "the ninth level and what is in it";
    EXPECT_EQ(left.front(), (Left {FileSystem::Iso9660, ErrorKind::TooDeep, "A/A/A/A/A/A/A/A"}));
    EXPECT_EQ(
        left.back(), (Left {FileSystem::Iso9660, ErrorKind::TooDeep, "A/A/A/A/A/A/A/A/A/A/A"}));
    EXPECT_EQ(Plan().Directories(), 11U);
}

TEST_F(LimitsTest, WhatAnotherFileSystemHoldsIsNotLost)
{
    options.isoLevel = IsoLevel::Level2;
    Choose(true, true, false);
    AddSparse("LARGE", 4294967296); // neither holds it
    const std::string file = Write("any", "");
    std::filesystem::create_symlink("nowhere", folder / "link");
    ASSERT_TRUE(tree->AddFile("LINK", folder / "link")); // Joliet has no links

    const ImagePlan plan = Plan();

    ASSERT_EQ(plan.LeftOut().size(), 3U);
    ASSERT_EQ(plan.Lost().size(), 1U);
    EXPECT_EQ(plan.Lost().front().path, "LARGE");
    ASSERT_EQ(plan.PartlyHeld().size(), 1U);
    EXPECT_EQ(plan.PartlyHeld().front().fileSystem, FileSystem::Joliet);
    EXPECT_EQ(plan.PartlyHeld().front().error.path, "LINK");
}

TEST_F(LimitsTest, EachEntryOfADirectoryThatIsLeftOutIsTold)
{
    options.strict = true;
    AddDirectory("A");
    AddDirectory("A/A");
    AddDirectory("A/A/A");
    AddDirectory("A/A/A/A");
    AddDirectory("A/A/A/A/A");
    AddDirectory("A/A/A/A/A/A");
    AddDirectory("A/A/A/A/A/A/A");
    const std::string deepest = "A/A/A/A/A/A/A/A";
    AddDirectory(deepest);
    AddFile(deepest + "/F1", "");
    AddDirectory(deepest + "/SUB");
    AddFile(deepest + "/SUB/F2", "");

    std::vector<std::string> paths;
    for (const Left& left : LeftOut()) {
        EXPECT_EQ(left.kind, ErrorKind::TooDeep);
        paths.push_back(left.path.substr(deepest.size()));
    }
    EXPECT_EQ(paths, (std::vector<std::string> {"", "/F1", "/SUB", "/SUB/F2"}));
}

TEST_F(LimitsTest, StrictPathsHave255Characters)
{
    options.strict = true;
    const std::string name(31, 'D');
    std::string path = name;
    AddDirectory(path);
    for (int level = 3; level <= 8; ++level) {
        path += "/" + name;
        AddDirectory(path);
    }
    // ECMA-119 6.8.2.1: seven names of 31, seven separators, 28 letters and ".;1".
    AddFile(path + "/" + std::string(28, 'F'), "");
    EXPECT_EQ(LeftOut(), std::vector<Left> {});

    const std::string longer = path + "/" + std::string(29, 'F');
    AddFile(longer, "");
    EXPECT_EQ(
        LeftOut(), (std::vector<Left> {{FileSystem::Iso9660, ErrorKind::PathTooLong, longer}}));

    options.strict = false;
    EXPECT_EQ(LeftOut(), std::vector<Left> {});
}

TEST_F(LimitsTest, StrictJolietNamesHave64Units)
{
    Choose(true, true, false);
    AddFile(std::string(65, 'J'), "");

    options.strict = true;
    EXPECT_EQ(Plan().ChangedNames().back().recorded, std::string(64, 'J'));
    options.strict = false;
    EXPECT_TRUE(Plan().ChangedNames().empty());
}

TEST_F(LimitsTest, ParentsBeyond65535KeepNoSubdirectoriesInPathTables)
{
    Choose(true, false, true);
    for (int i = 0; i < 65536; ++i) { // numbers 2 to 65537; the root is 1
        AddDirectory(Numbered(i));
        if (i < 2 || i > 65530) {
            AddDirectory(Numbered(i) + "/X");
        }
    }

    EXPECT_EQ(LeftOut(), // ECMA-119 9.4.4: a parent's number has 16 bits
        (std::vector<Left> {{FileSystem::Iso9660, ErrorKind::TooManyDirectories, "D65534/X"},
            {FileSystem::Iso9660, ErrorKind::TooManyDirectories, "D65535/X"}}));
    EXPECT_EQ(Plan().Directories(), 65543U);
}

TEST_F(LimitsTest, LastParentNumberIsRecordedInFull)
{
    for (int i = 0; i < 65534; ++i) {
        AddDirectory(Numbered(i));
    }
    AddDirectory("D65533/X");
    ASSERT_EQ(LeftOut(), std::vector<Left> {});

    // The L table begins at 18: the root's 10 bytes, 65,534 of 14, then 10 bytes of X.
    const std::uint64_t last = 18 * kSector + 10 + 65534 * 14;
    ImageStream stream(Plan());
    const std::string record = Read(stream, last, 10);
    EXPECT_EQ(Hex(record.substr(0, 2)), "01 00");
    EXPECT_EQ(Hex(record.substr(6)), "FF FF 58 00");
}

TEST_F(LimitsTest, FileOf4GibibytesIsLeftOutOfLevels1And2)
{
    Choose(true, true, true);
    AddSparse("FITS", 4294967295);
    AddSparse("LARGE", 4294967296);

    for (const IsoLevel level : {IsoLevel::Level1, IsoLevel::Level2}) {
        options.isoLevel = level;
        EXPECT_EQ(LeftOut(), // ECMA-119 10.1, 10.2: one extent
            (std::vector<Left> {{FileSystem::Iso9660, ErrorKind::FileTooLarge, "LARGE"},
                {FileSystem::Joliet, ErrorKind::FileTooLarge, "LARGE"}}));
        EXPECT_EQ(Plan().Files(), 2U);
    }
    options.isoLevel = IsoLevel::Level3;
    EXPECT_EQ(LeftOut(), std::vector<Left> {});
}

TEST_F(LimitsTest, FileBeyondOneUdfEntryIsLeftOutOfUdf)
{
    Choose(true, false, true);
    AddSparse("FITS", 251255107584);
    AddSparse("LARGE", 251255107585);

    EXPECT_EQ(LeftOut(), (std::vector<Left> {{FileSystem::Udf, ErrorKind::FileTooLarge, "LARGE"}}));
}

TEST_F(LimitsTest, FileThatUdfLeavesOutHasNoEntryThere)
{
    Choose(true, false, true);
    AddSparse("LARGE", 322122547200);
    AddFile("SMALL", "");
    ASSERT_EQ(LeftOut().size(), 1U);

    const std::string blocks = Sectors(257, 6);

    // File set, terminator, entries of the root and of SMALL, the root's identifiers.
    EXPECT_EQ(HexOf(blocks, 2, 0, 2), "05 01");
    EXPECT_EQ(HexOf(blocks, 3, 0, 2), "05 01");
    EXPECT_TRUE(IsZeros(Part(blocks, 3, 56, 8)));
    EXPECT_TRUE(IsZeros(Part(blocks, 3, 176, 1872)));
    EXPECT_EQ(HexOf(blocks, 4, 0, 2), "01 01");
    EXPECT_EQ(HexOf(Sectors(64, 1), 0, 120, 8), "01 00 00 00 01 00 00 00"); // files, directories
}

/// Records of files in several extents. Plain ISO 9660: the root in 20, data from 22 on.
class MultiExtentTest : public ImageBench {
protected:
    MultiExtentTest()
    {
        options.strict = true;
        Choose(true, false, false);
    }

    /// Extent, length and flags of the record that begins at a byte of the root directory.
    std::string RecordAt(std::size_t position) const
    {
        const std::string root = Sectors(20, 1);
        return Hex(root.substr(position, 1)) + " | " + Hex(root.substr(position + 2, 8)) + " | "
            + Hex(root.substr(position + 10, 8)) + " | " + Hex(root.substr(position + 25, 1));
    }
};

TEST_F(MultiExtentTest, FileBelow4GibibytesIsOneExtent)
{
    AddSparse("BIG", 4294967295);
    EXPECT_EQ(RecordAt(68), "28 | 16 00 00 00 00 00 00 16 | FF FF FF FF FF FF FF FF | 00");
    EXPECT_EQ(Hex(Sectors(20, 1).substr(108, 1)), "00");
}

TEST_F(MultiExtentTest, FileOf4GibibytesIsTwo)
{
    AddSparse("BIG", 4294967296);

    // ECMA-119 9.1.6: bit 7 in all but the last; 6.4.5: all but the last are whole sectors.
    EXPECT_EQ(RecordAt(68), "28 | 16 00 00 00 00 00 00 16 | 00 F8 FF FF FF FF F8 00 | 80");
    EXPECT_EQ(RecordAt(108), "28 | 15 00 20 00 00 20 00 15 | 00 08 00 00 00 00 08 00 | 00");
    EXPECT_EQ(Sectors(20, 1).substr(68 + 33, 6), "BIG.;1");
    EXPECT_EQ(Sectors(20, 1).substr(108 + 33, 6), "BIG.;1");
    EXPECT_EQ(Plan().Files(), 1U);
}

TEST_F(MultiExtentTest, FileOf5GibibytesIsTwo)
{
    AddSparse("BIG", 5368709120);
    EXPECT_EQ(RecordAt(68), "28 | 16 00 00 00 00 00 00 16 | 00 F8 FF FF FF FF F8 00 | 80");
    EXPECT_EQ(RecordAt(108), "28 | 15 00 20 00 00 20 00 15 | 00 08 00 40 40 00 08 00 | 00");
}

TEST_F(MultiExtentTest, FileOf9GibibytesIsThree)
{
    AddSparse("BIG", 9663676417); // one byte more
    EXPECT_EQ(RecordAt(68), "28 | 16 00 00 00 00 00 00 16 | 00 F8 FF FF FF FF F8 00 | 80");
    EXPECT_EQ(RecordAt(108), "28 | 15 00 20 00 00 20 00 15 | 00 F8 FF FF FF FF F8 00 | 80");
    EXPECT_EQ(RecordAt(148), "28 | 14 00 40 00 00 40 00 14 | 01 10 00 40 40 00 10 01 | 00");
}

TEST_F(MultiExtentTest, NextFileFollowsTheLastExtent)
{
    AddSparse("BIG", 4294967297);
    AddFile("SMALL", "x");
    EXPECT_EQ(RecordAt(148), "2A | 17 00 20 00 00 20 00 17 | 01 00 00 00 00 00 00 01 | 00");
}

TEST_F(MultiExtentTest, JolietRecordsHaveTheSameExtents)
{
    Choose(true, true, false);
    AddSparse("BIG", 4294967296);

    const std::string joliet = Sectors(24, 1); // its root; the data begin at 26

    // Below "." and "..": two records of 33 + 6 + 1 bytes.
    EXPECT_EQ(Hex(joliet.substr(68 + 2, 4)), "1A 00 00 00");
    EXPECT_EQ(Hex(joliet.substr(68 + 25, 1)), "80");
    EXPECT_EQ(Hex(joliet.substr(108 + 2, 4)), "19 00 20 00");
    EXPECT_EQ(Hex(joliet.substr(108 + 10, 4)), "00 08 00 00");
    EXPECT_EQ(Hex(joliet.substr(108 + 25, 1)), "00");
}

TEST_F(MultiExtentTest, ReadsOnAcrossTheExtents)
{
    const std::string file = WriteSparse("big", 4294967296 + 100);
    const int descriptor = ::open(file.c_str(), O_WRONLY);
    ASSERT_EQ(::pwrite(descriptor, "across", 6, 4294965248 - 3), 6);
    ASSERT_EQ(::pwrite(descriptor, "end", 3, 4294967296 + 97), 3);
    ::close(descriptor);
    ASSERT_TRUE(tree->AddFile("BIG", file));

    ImageStream stream(Plan());
    const std::uint64_t begin = 22 * kSector;

    EXPECT_EQ(Read(stream, begin + 4294965248 - 3, 6), "across");
    EXPECT_EQ(Read(stream, begin + 4294967296 + 97, 4), std::string_view("end\0", 4));
}

} // namespace velmora::test
