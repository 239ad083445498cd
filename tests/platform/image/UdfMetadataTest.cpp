// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/udf/UdfVolume.h"
#include "tests/platform/image/UdfBench.h"

namespace velmora::test {

namespace {

/// The entry of the metadata file of a volume whose file structure has this many blocks: its main
/// file at the start of the partition, block 0, its own blocks from block 32 on.
std::string MetadataEntry(std::uint32_t structureBlocks)
{
    const image::SourceTree nothing;
    const image::AttributeRules attributes(nothing, image::Rights::OfEverybody, std::nullopt);
    const image::LinkTargets targets(nothing);
    const image::UdfHierarchy hierarchy(nothing, targets, attributes);
    image::UdfVolumeFacts facts;
    facts.places.revision = 0x0250;
    facts.places.partitionStart = 288;
    facts.places.structureStart = 320;
    facts.places.structureBlocks = structureBlocks;
    facts.places.mirrorSector = 320 + structureBlocks;
    for (image::FixedSectors& sectors : VolumeStructures(facts, hierarchy)) {
        if (sectors.sector == facts.places.partitionStart) return std::move(sectors.bytes);
    }
    return {};
}

} // namespace

using UdfMetadataTest = Udf250Test;

TEST_F(UdfMetadataTest, RecognitionSequenceSaysNsr03)
{
    EXPECT_EQ(HexOf(Bytes(), 17, 0, 8), "00 4E 53 52 30 33 01 00");
}

TEST_F(UdfMetadataTest, TagsHaveVersion3)
{
    const std::string image = Bytes();

    for (const std::size_t sector : {32, 33, 34, 35, 36, 37, 64, 65, 256, 288, 320, 321, 322, 543})
        EXPECT_EQ(HexOf(image, sector, 2, 2), "03 00") << sector; // UDF 2.1.1
}

TEST_F(UdfMetadataTest, ReserveSequenceLiesBeforeTheClosingAnchor)
{
    const std::string image = Bytes();

    ASSERT_EQ(image.size(), 544 * kSector);
    for (const std::size_t sector : {256, 543})
        EXPECT_EQ(HexOf(image, sector, 16, 16), // 32 and 527 (UDF 2.2.3.2: far apart)
            "00 80 00 00 20 00 00 00 00 80 00 00 0F 02 00 00");
    EXPECT_TRUE(IsZeros(Part(image, 48, 0, 16 * kSector)));
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_EQ(Part(image, 527 + i, 16, 2032), Part(image, 32 + i, 16, 2032)) << i;
    EXPECT_EQ(TagOf(Part(image, 527, 0, 512)), "01 00 03 00 | 01 00 | F0 01 | 0F 02 00 00");
    EXPECT_TRUE(IsSealed(Part(image, 527, 0, 512)));
}

TEST_F(UdfMetadataTest, PartitionBeginsAtAnAllocationUnitAndHoldsTheMirror)
{
    const std::string image = Bytes();

    EXPECT_EQ(Part(image, 34, 24, 32), Entity("+NSR03", ""));
    EXPECT_EQ(HexOf(image, 34, 184, 12), // sector 288, 68 sectors: up to the mirror in 355
        "01 00 00 00 20 01 00 00 44 00 00 00");
}

TEST_F(UdfMetadataTest, LogicalVolumeHasAPlainAndAMetadataMap)
{
    const std::string image = Bytes();
    const std::string_view descriptor = Part(image, 35, 0, kSector);

    EXPECT_EQ(TagOf(descriptor), "06 00 03 00 | 01 00 | EE 01 | 23 00 00 00"); // 424 + 70 bytes
    EXPECT_TRUE(IsSealed(descriptor));
    EXPECT_EQ(descriptor.substr(216, 32), Entity("*OSTA UDF Compliant", "\x50\x02\x03"));
    EXPECT_EQ(Hex(descriptor.substr(248, 16)), // the file set: block 0 of partition 1
        "00 10 00 00 00 00 00 00 01 00 00 00 00 00 00 00");
    EXPECT_EQ(Hex(descriptor.substr(264, 8)), "46 00 00 00 02 00 00 00");
    EXPECT_EQ(Hex(descriptor.substr(440, 6)), "01 06 01 00 00 00");
    EXPECT_EQ(Hex(descriptor.substr(446, 4)), "02 40 00 00"); // UDF 2.2.10
    EXPECT_EQ(descriptor.substr(450, 32), Entity("*UDF Metadata Partition", "\x50\x02\x04\x05"));
    EXPECT_EQ(Hex(descriptor.substr(482, 28)),
        "01 00 00 00 "             // volume 1, partition 0
        "00 00 00 00 43 00 00 00 " // main file in block 0, mirror in 67
        "FF FF FF FF "             // no bitmap
        "20 00 00 00 20 00 "       // allocation unit and alignment: 32 blocks
        "00 00 00 00 00 00");      // not duplicated
    EXPECT_TRUE(IsZeros(descriptor.substr(510)));
}

TEST_F(UdfMetadataTest, IntegrityDescriptorHasSizesOfBothPartitions)
{
    const std::string image = Bytes();

    EXPECT_EQ(TagOf(Part(image, 64, 0, 512)), "09 00 03 00 | 01 00 | 7E 00 | 40 00 00 00");
    EXPECT_TRUE(IsSealed(Part(image, 64, 0, 512)));
    EXPECT_EQ(HexOf(image, 64, 72, 24), // two partitions: free 0 and 0, size 68 and 32
        "02 00 00 00 2E 00 00 00 00 00 00 00 00 00 00 00 44 00 00 00 20 00 00 00");
    EXPECT_EQ(HexOf(image, 64, 128, 14), "02 00 00 00 02 00 00 00 50 02 50 02 50 02");
}

TEST_F(UdfMetadataTest, MainAndMirrorEntryShareTheMetadataBlocks)
{
    const std::string image = Bytes();

    EXPECT_EQ(TagOf(Part(image, 288, 0, 512)), "0A 01 03 00 | 01 00 | D0 00 | 00 00 00 00");
    EXPECT_EQ(TagOf(Part(image, 355, 0, 512)), "0A 01 03 00 | 01 00 | D0 00 | 43 00 00 00");
    EXPECT_EQ(HexOf(image, 288, 27, 1), "FA"); // 4/14.6.6, UDF 2.2.13: type 250
    EXPECT_EQ(HexOf(image, 355, 27, 1), "FB"); // 251
    for (const std::size_t sector : {288, 355}) {
        EXPECT_TRUE(IsSealed(Part(image, sector, 0, 512)));
        EXPECT_EQ(HexOf(image, sector, 16, 11), "00 00 00 00 04 00 00 00 01 00 00");
        EXPECT_EQ(HexOf(image, sector, 34, 2), "00 00"); // short allocation descriptors
        EXPECT_EQ(HexOf(image, sector, 56, 24),          // 65,536 bytes in 32 blocks
            "00 00 01 00 00 00 00 00 00 00 01 00 00 00 00 00 20 00 00 00 00 00 00 00");
        EXPECT_EQ(HexOf(image, sector, 200, 24), // unique ID 0, one extent from block 32 on
            "00 00 00 00 00 00 00 00 00 00 00 00 08 00 00 00 00 00 01 00 20 00 00 00");
    }
}

TEST_F(UdfMetadataTest, ExtentsOfALargeMetadataFileAreWholeAllocationUnits)
{
    const std::string entry = MetadataEntry(1'100'000); // over 2 GiB: a million files

    // 2^30 bytes are one block more than an extent can have, and so one unit of 32 (UDF 2.2.13).
    EXPECT_EQ(NumberAt(entry, 56, 8), 2'252'800'000U);
    EXPECT_EQ(NumberAt(entry, 212, 4), 3 * 8U);
    EXPECT_EQ(Hex(std::string_view(entry).substr(216, 24)),
        "00 00 FF 3F 20 00 00 00 "  // 524,256 blocks from 32 on
        "00 00 FF 3F 00 00 08 00 "  // as many from 524,288 on
        "00 00 49 06 E0 FF 0F 00"); // the other 51,488
}

TEST_F(UdfMetadataTest, FileStructureIsCountedFromTheMetadataFilesStart)
{
    const std::string image = Bytes();

    EXPECT_EQ(TagOf(Part(image, 320, 0, 512)), "00 01 03 00 | 01 00 | F0 01 | 00 00 00 00");
    EXPECT_EQ(HexOf(image, 320, 400, 16), // the root: block 2 of partition 1
        "00 08 00 00 02 00 00 00 01 00 00 00 00 00 00 00");
    EXPECT_EQ(HexOf(image, 322, 12, 4), "02 00 00 00");
    EXPECT_EQ(HexOf(image, 326, 12, 4), "06 00 00 00");
    EXPECT_TRUE(IsZeros(Part(image, 328, 0, 24 * kSector))); // the rest of the allocation unit
}

TEST_F(UdfMetadataTest, ExtendedEntryOfAFileHasLongDescriptors)
{
    const std::string image = Bytes();
    const std::string_view entry = Part(image, 324, 0, kSector); // READ.ME

    EXPECT_EQ(TagOf(entry), "0A 01 03 00 | 01 00 | D8 00 | 04 00 00 00"); // 200 + 16 bytes
    EXPECT_TRUE(IsSealed(entry));
    EXPECT_EQ(Hex(entry.substr(16, 20)), // 4/14.6: strategy 4, type 5, flags 1
        "00 00 00 00 04 00 00 00 01 00 00 05 00 00 00 00 00 00 01 00");
    EXPECT_EQ(Hex(entry.substr(36, 20)), // no owner, 0x1084, one link
        "FF FF FF FF FF FF FF FF 84 10 00 00 01 00 00 00 00 00 00 00");
    EXPECT_EQ(Hex(entry.substr(56, 24)), // 4/14.17: length, object size, blocks
        "01 08 00 00 00 00 00 00 01 08 00 00 00 00 00 00 02 00 00 00 00 00 00 00");
    for (const std::size_t position : {80, 92, 104, 116}) // accessed, modified, created, attributes
        EXPECT_EQ(Hex(entry.substr(position, 12)), kUdfMoment) << position;
    EXPECT_EQ(Hex(entry.substr(128, 8)), "01 00 00 00 00 00 00 00");
    EXPECT_TRUE(IsZeros(entry.substr(136, 32))); // no extended attributes, no streams
    EXPECT_EQ(entry.substr(168, 32), kImplementation);
    EXPECT_EQ(Hex(entry.substr(200, 16)), "12 00 00 00 00 00 00 00 00 00 00 00 10 00 00 00");
    EXPECT_EQ(Hex(entry.substr(216, 16)), // 4/14.14.2: sector 352 is block 64 of partition 0
        "01 08 00 00 40 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_TRUE(IsZeros(entry.substr(232)));
}

TEST_F(UdfMetadataTest, ExtendedEntryOfADirectoryHasShortDescriptors)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 322, 27, 1), "04");
    EXPECT_EQ(HexOf(image, 322, 34, 2), "00 00");
    EXPECT_EQ(HexOf(image, 322, 212, 12), // 132 bytes in block 6 of the same partition
        "08 00 00 00 84 00 00 00 06 00 00 00");
}

TEST_F(UdfMetadataTest, IdentifiersHoldUniqueIds)
{
    const std::string image = Bytes();

    // UDF 2.3.4.3: the low half of the entry's ID in the last four bytes of the ICB.
    EXPECT_EQ(HexOf(image, 326, 16, 22),
        "01 00 0A 00 00 08 00 00 02 00 00 00 01 00 00 00 00 00 00 00 00 00"); // parent: root, 0
    EXPECT_EQ(HexOf(image, 326, 56, 22),
        "01 00 02 06 00 08 00 00 03 00 00 00 01 00 00 00 11 00 00 00 00 00"); // ALPHA: 17
    EXPECT_EQ(HexOf(image, 326, 100, 22),
        "01 00 00 08 00 08 00 00 04 00 00 00 01 00 00 00 12 00 00 00 00 00"); // READ.ME: 18
    EXPECT_EQ(HexOf(image, 323, 200, 8), "11 00 00 00 00 00 00 00");
}

TEST_F(UdfMetadataTest, FurtherHardLinkHasAUniqueIdOfItsOwn)
{
    const std::string file = Write("shared", "text");
    ASSERT_TRUE(tree->AddFile("s1", file));
    ASSERT_TRUE(tree->AddFile("s2", file));

    const std::string image = Bytes();

    // Entries: root 2, ALPHA 3, READ.ME 4, the shared file 5, INNER.TXT 6; directories from 7 on.
    EXPECT_EQ(HexOf(image, 327, 132 + 20, 16), "00 08 00 00 05 00 00 00 01 00 00 00 13 00 00 00");
    EXPECT_EQ(HexOf(image, 327, 174 + 2 + 20, 16),
        "00 08 00 00 05 00 00 00 01 00 00 00 18 00 00 00"); // 16 + 5 entries + the fourth name
    EXPECT_EQ(HexOf(image, 325, 48, 2), "02 00");           // links
    EXPECT_EQ(HexOf(image, 64, 40, 8), "1A 00 00 00 00 00 00 00");  // next: 26
    EXPECT_EQ(HexOf(image, 64, 128, 8), "04 00 00 00 02 00 00 00"); // four names of files
}

TEST_F(UdfMetadataTest, EmptyFileHasNoDescriptors)
{
    AddFile("EMPTY", "");

    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 324, 56, 24), // EMPTY comes before READ.ME
        "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(HexOf(image, 324, 208, 8), "00 00 00 00 00 00 00 00");
}

} // namespace velmora::test
