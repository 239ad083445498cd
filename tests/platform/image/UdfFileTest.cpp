// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/image/UdfBench.h"

namespace velmora::test {

using UdfFileTest = Udf102Test;

TEST_F(UdfFileTest, FileEntryOfADirectory)
{
    const std::string image = Bytes();
    const std::string_view entry = Part(image, 259, 0, kSector); // the root

    EXPECT_EQ(TagOf(entry), "05 01 02 00 | 01 00 | A8 00 | 02 00 00 00"); // 160 + 8 bytes
    EXPECT_TRUE(IsSealed(entry));
    EXPECT_EQ(Hex(entry.substr(16, 20)), // ECMA-167 4/14.6: strategy 4, type 4, flags 0
        "00 00 00 00 04 00 00 00 01 00 00 04 00 00 00 00 00 00 00 00");
    EXPECT_EQ(Hex(entry.substr(36, 20)), // 4/14.9.3-9: no owner, 0x14A5, its own and ALPHA's parent
        "FF FF FF FF FF FF FF FF A5 14 00 00 02 00 00 00 00 00 00 00");
    EXPECT_EQ(Hex(entry.substr(56, 16)), // 132 bytes, one block
        "84 00 00 00 00 00 00 00 01 00 00 00 00 00 00 00");
    for (const std::size_t position : {72, 84, 96}) // accessed, modified, attributes
        EXPECT_EQ(Hex(entry.substr(position, 12)), kUdfMoment) << position;
    EXPECT_EQ(Hex(entry.substr(108, 4)), "01 00 00 00"); // 4/14.9.15: checkpoint 1
    EXPECT_TRUE(IsZeros(entry.substr(112, 16)));         // no extended attributes
    EXPECT_EQ(entry.substr(128, 32), kImplementation);
    EXPECT_EQ(Hex(entry.substr(160, 16)), // unique ID 0, no attributes, 8 bytes of descriptors
        "00 00 00 00 00 00 00 00 00 00 00 00 08 00 00 00");
    EXPECT_EQ(Hex(entry.substr(176, 8)), "84 00 00 00 06 00 00 00"); // 4/14.14.1: block 6
    EXPECT_TRUE(IsZeros(entry.substr(184)));
}

TEST_F(UdfFileTest, FileEntryOfAFile)
{
    const std::string image = Bytes();
    const std::string_view entry = Part(image, 261, 0, kSector); // READ.ME

    EXPECT_EQ(TagOf(entry), "05 01 02 00 | 01 00 | A8 00 | 04 00 00 00");
    EXPECT_TRUE(IsSealed(entry));
    EXPECT_EQ(Hex(entry.substr(27, 1)), "05");
    EXPECT_EQ(Hex(entry.substr(44, 6)), "84 10 00 00 01 00"); // everybody reads; one link
    EXPECT_EQ(Hex(entry.substr(56, 16)), "01 08 00 00 00 00 00 00 02 00 00 00 00 00 00 00");
    EXPECT_EQ(Hex(entry.substr(160, 16)), "12 00 00 00 00 00 00 00 00 00 00 00 08 00 00 00");
    EXPECT_EQ(Hex(entry.substr(176, 8)), "01 08 00 00 08 00 00 00"); // sector 265 is block 8
    EXPECT_EQ(Part(image, 265, 0, 2049), std::string(2049, 'r'));
    EXPECT_EQ(Part(image, 267, 0, 5), "inner");
}

TEST_F(UdfFileTest, ParentIdentifierComesFirstAndHasNoName)
{
    const std::string image = Bytes();
    const std::string_view identifier = Part(image, 263, 0, 40);

    EXPECT_EQ(TagOf(identifier), "01 01 02 00 | 01 00 | 18 00 | 06 00 00 00");
    EXPECT_TRUE(IsSealed(identifier));
    EXPECT_EQ(Hex(identifier.substr(16)), // 4/14.4: version 1, directory and parent, block 2
        "01 00 0A 00 00 08 00 00 02 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
}

TEST_F(UdfFileTest, IdentifierOfADirectory)
{
    const std::string image = Bytes();
    const std::string_view identifier = Part(image, 263, 40, 44);

    EXPECT_EQ(TagOf(identifier), "01 01 02 00 | 01 00 | 1C 00 | 06 00 00 00");
    EXPECT_TRUE(IsSealed(identifier));
    EXPECT_EQ(Hex(identifier.substr(16)), // block 3, no unique ID below 2.00, 8-bit name
        "01 00 02 06 00 08 00 00 03 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "08 41 4C 50 48 41");
}

TEST_F(UdfFileTest, IdentifierOfAFileIsPaddedToFourBytes)
{
    const std::string image = Bytes();
    const std::string_view identifier = Part(image, 263, 84, 48);

    EXPECT_EQ(TagOf(identifier), "01 01 02 00 | 01 00 | 20 00 | 06 00 00 00");
    EXPECT_TRUE(IsSealed(identifier));
    EXPECT_EQ(Hex(identifier.substr(16)),
        "01 00 00 08 00 08 00 00 04 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "08 52 45 41 44 2E 4D 45 00 00");
    EXPECT_TRUE(IsZeros(Part(image, 263, 132, 1916)));
}

TEST_F(UdfFileTest, ParentOfASubdirectoryIsTheDirectoryAbove)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 264, 12, 12), "07 00 00 00 01 00 0A 00 00 08 00 00"); // in block 7
    EXPECT_EQ(HexOf(image, 264, 24, 4), "02 00 00 00");                          // the root's entry
    EXPECT_EQ(HexOf(image, 260, 48, 2), "01 00"); // ALPHA has one link
}

TEST_F(UdfFileTest, IdentifierCrossesABlockAndIsLocatedWhereItBegins)
{
    for (int i = 100; i < 150; ++i) // 48 bytes each after the 132 that are there
        AddFile("S" + std::to_string(i) + ".TXT", "");

    const std::string image = Bytes();

    // Two directories, 52 files: the root's identifiers begin in block 2 + 54. The 40th of the new
    // ones begins at byte 132 + 39 * 48 = 2004, and four bytes of it are in the next block.
    const std::string_view row = Part(image, 257 + 56, 0, 2 * kSector);
    EXPECT_TRUE(IsSealed(row.substr(2004, 48)));
    EXPECT_EQ(Hex(row.substr(2004 + 12, 4)), "38 00 00 00"); // block 56 (4/7.2.8)
    EXPECT_EQ(row.substr(2004 + 39, 8), "S139.TXT");
    EXPECT_TRUE(IsSealed(row.substr(2052, 48)));
    EXPECT_EQ(Hex(row.substr(2052 + 12, 4)), "39 00 00 00");
    EXPECT_EQ(HexOf(image, 259, 56, 16), // 2,532 bytes, not rounded; two blocks
        "E4 09 00 00 00 00 00 00 02 00 00 00 00 00 00 00");
}

TEST_F(UdfFileTest, ExecutableFilesStayExecutable)
{
    const std::string file = Write("program", "");
    ASSERT_EQ(::chmod(file.c_str(), 0750), 0);
    ASSERT_TRUE(tree->AddFile("S", file));

    const std::string image = Bytes();

    // 4/14.9.5: read for all (0x1084), execute for owner (0x400) and group (0x20).
    EXPECT_EQ(HexOf(image, 262, 44, 4), "A4 14 00 00");
}

TEST_F(UdfFileTest, LargeFileTakesExtentsOfWholeBlocksBelowOneGibibyte)
{
    AddSparse("ALPHA/A", 2147483648); // 2 * (2^30 - 2048) + 4096, recorded before INNER.TXT

    const std::string entry = Sectors(262, 1); // after READ.ME's

    EXPECT_TRUE(IsSealed(entry));
    EXPECT_EQ(Hex(entry.substr(56, 16)), "00 00 00 80 00 00 00 00 00 00 10 00 00 00 00 00");
    EXPECT_EQ(Hex(entry.substr(172, 4)), "18 00 00 00");
    // 4/14.14.1.1, 4/12.1: from block 12 on (sector 269 made even), 524,287 blocks each.
    EXPECT_EQ(Hex(entry.substr(176, 24)),
        "00 F8 FF 3F 0B 00 00 00 00 F8 FF 3F 0A 00 08 00 00 10 00 00 09 00 10 00");
}

TEST_F(UdfFileTest, NamesBeyondLatin1AreRecordedInTwoBytes)
{
    AddFile("Ω", "");

    const std::string image = Bytes();

    // Three files move the directories to block 7. The new name sorts after the 8-bit ones.
    EXPECT_EQ(HexOf(image, 257 + 7, 132 + 19, 1), "03");
    EXPECT_EQ(HexOf(image, 257 + 7, 132 + 38, 4), "10 03 A9 00");
}

} // namespace velmora::test
