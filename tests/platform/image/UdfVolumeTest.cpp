// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/image/UdfBench.h"

namespace velmora::test {

using UdfVolumeTest = Udf102Test;

TEST_F(UdfVolumeTest, RecognitionSequenceSaysNsr02)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 16, 0, 8), "00 42 45 41 30 31 01 00"); // BEA01 (ECMA-167 2/9.2)
    EXPECT_EQ(HexOf(image, 17, 0, 8), "00 4E 53 52 30 32 01 00"); // NSR02 (3/9.1)
    EXPECT_EQ(HexOf(image, 18, 0, 8), "00 54 45 41 30 31 01 00"); // TEA01 (2/9.3)
    EXPECT_TRUE(IsZeros(Part(image, 18, 7, 14 * kSector - 7)));
}

TEST_F(UdfVolumeTest, RecognitionSequenceFollowsTheOtherDescriptorsOfABridge)
{
    Choose(true, true, true);

    const std::string image = Bytes();

    EXPECT_EQ(Part(image, 18, 1, 5), "CD001"); // the terminator; no gap after it (2/8.3)
    EXPECT_EQ(Part(image, 19, 1, 5), "BEA01");
    EXPECT_EQ(Part(image, 20, 1, 5), "NSR02");
    EXPECT_EQ(Part(image, 21, 1, 5), "TEA01");
}

TEST_F(UdfVolumeTest, AnchorsStandAt256AndInTheLastSector)
{
    const std::string image = Bytes();

    ASSERT_EQ(image.size(), 448 * kSector);
    EXPECT_EQ(TagOf(Part(image, 256, 0, 512)), "02 00 02 00 | 01 00 | F0 01 | 00 01 00 00");
    EXPECT_EQ(TagOf(Part(image, 447, 0, 512)), "02 00 02 00 | 01 00 | F0 01 | BF 01 00 00");
    for (const std::size_t sector : {256, 447}) {
        EXPECT_TRUE(IsSealed(Part(image, sector, 0, 512)));
        EXPECT_EQ(HexOf(image, sector, 16, 16), // ECMA-167 3/10.2: 16 sectors at 32 and at 48
            "00 80 00 00 20 00 00 00 00 80 00 00 30 00 00 00");
        EXPECT_TRUE(IsZeros(Part(image, sector, 32, 2016)));
    }
}

TEST_F(UdfVolumeTest, PrimaryVolumeDescriptorComesFirst)
{
    const std::string image = Bytes();
    const std::string_view descriptor = Part(image, 32, 0, kSector);

    EXPECT_EQ(TagOf(descriptor), "01 00 02 00 | 01 00 | F0 01 | 20 00 00 00");
    EXPECT_TRUE(IsSealed(descriptor));
    EXPECT_EQ(Hex(descriptor.substr(16, 8)), "00 00 00 00 00 00 00 00"); // 3/10.1.2, 3/10.1.3
    EXPECT_EQ(descriptor.substr(24, 32), DStringOf("HOLIDAY", 32));      // 3/10.1.4
    EXPECT_EQ(Hex(descriptor.substr(56, 16)), // 3/10.1.5-10: one volume, levels 2 and 3, CS0
        "01 00 01 00 02 00 03 00 01 00 00 00 01 00 00 00");
    EXPECT_EQ(descriptor.substr(200, 64), kCharacterSet);   // 3/10.1.12
    EXPECT_EQ(descriptor.substr(264, 64), kCharacterSet);   // 3/10.1.13
    EXPECT_TRUE(IsZeros(descriptor.substr(328, 48)));       // 3/10.1.14-16
    EXPECT_EQ(Hex(descriptor.substr(376, 12)), kUdfMoment); // 3/10.1.17
    EXPECT_EQ(descriptor.substr(388, 32), kImplementation); // 3/10.1.18
    EXPECT_TRUE(IsZeros(descriptor.substr(420)));           // 3/10.1.19-22
}

TEST_F(UdfVolumeTest, VolumeSetNameBeginsWithTheTimeInHexadecimalDigits)
{
    const std::string image = Bytes();
    const std::string_view name = Part(image, 32, 72, 128);

    EXPECT_EQ(name.substr(0, 9),
        "\x08"
        "69AE7120"); // UDF 2.2.2.5: 1773039904
    EXPECT_EQ(name.substr(9, 8).find_first_not_of("0123456789ABCDEF"), std::string_view::npos);
    EXPECT_EQ(name.substr(17, 7), "HOLIDAY");
    EXPECT_TRUE(IsZeros(name.substr(24, 103)));
    EXPECT_EQ(name.back(), 24); // bytes, the compression ID counted
}

TEST_F(UdfVolumeTest, VolumeSetNamesOfOneSecondDiffer)
{
    const auto unique = [this] { return std::string(Part(Bytes(), 32, 73, 16)); };
    const std::string first = unique();
    options.created.microseconds = 123457;
    const std::string second = unique();
    options.volumeName = "WORK";
    const std::string third = unique();

    EXPECT_NE(first, second);
    EXPECT_NE(second, third);
}

TEST_F(UdfVolumeTest, ImplementationUseDescriptorRepeatsTheName)
{
    const std::string image = Bytes();
    const std::string_view descriptor = Part(image, 33, 0, kSector);

    EXPECT_EQ(TagOf(descriptor), "04 00 02 00 | 01 00 | F0 01 | 21 00 00 00");
    EXPECT_TRUE(IsSealed(descriptor));
    EXPECT_EQ(Hex(descriptor.substr(16, 4)), "01 00 00 00");
    EXPECT_EQ(descriptor.substr(20, 32), Entity("*UDF LV Info", "\x02\x01\x04\x05")); // UDF 2.2.7
    EXPECT_EQ(descriptor.substr(52, 64), kCharacterSet);
    EXPECT_EQ(descriptor.substr(116, 128), DStringOf("HOLIDAY", 128));
    EXPECT_TRUE(IsZeros(descriptor.substr(244, 108))); // three d-strings of 36
    EXPECT_EQ(descriptor.substr(352, 32), kImplementation);
    EXPECT_TRUE(IsZeros(descriptor.substr(384)));
}

TEST_F(UdfVolumeTest, PartitionIsReadOnlyAndEndsWithTheData)
{
    const std::string image = Bytes();
    const std::string_view descriptor = Part(image, 34, 0, kSector);

    EXPECT_EQ(TagOf(descriptor), "05 00 02 00 | 01 00 | F0 01 | 22 00 00 00");
    EXPECT_TRUE(IsSealed(descriptor));
    EXPECT_EQ(Hex(descriptor.substr(16, 8)), "02 00 00 00 01 00 00 00"); // 3/10.5.3: allocated
    EXPECT_EQ(descriptor.substr(24, 32), Entity("+NSR02", ""));          // 3/10.5.5
    EXPECT_TRUE(IsZeros(descriptor.substr(56, 128)));                    // 3/10.5.6
    EXPECT_EQ(Hex(descriptor.substr(184, 12)), // 3/10.5.7-9: read-only, 257, 11 sectors
        "01 00 00 00 01 01 00 00 0B 00 00 00");
    EXPECT_EQ(descriptor.substr(196, 32), kImplementation);
    EXPECT_TRUE(IsZeros(descriptor.substr(228)));
}

TEST_F(UdfVolumeTest, LogicalVolumeDescriptorHasOnePlainMap)
{
    const std::string image = Bytes();
    const std::string_view descriptor = Part(image, 35, 0, kSector);

    EXPECT_EQ(TagOf(descriptor), "06 00 02 00 | 01 00 | AE 01 | 23 00 00 00"); // 424 + 6 bytes
    EXPECT_TRUE(IsSealed(descriptor));
    EXPECT_EQ(Hex(descriptor.substr(16, 4)), "03 00 00 00");
    EXPECT_EQ(descriptor.substr(20, 64), kCharacterSet);
    EXPECT_EQ(descriptor.substr(84, 128), DStringOf("HOLIDAY", 128)); // 3/10.6.4
    EXPECT_EQ(Hex(descriptor.substr(212, 4)), "00 08 00 00");         // 3/10.6.5
    EXPECT_EQ(descriptor.substr(216, 32), // UDF 2.1.5.3: hard and soft write protect
        Entity("*OSTA UDF Compliant", "\x02\x01\x03"));
    EXPECT_EQ(Hex(descriptor.substr(248, 16)), // the file set: two blocks, block 0, partition 0
        "00 10 00 00 00 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(Hex(descriptor.substr(264, 8)), "06 00 00 00 01 00 00 00");
    EXPECT_EQ(descriptor.substr(272, 32), kImplementation);
    EXPECT_TRUE(IsZeros(descriptor.substr(304, 128)));
    EXPECT_EQ(Hex(descriptor.substr(432, 8)), "00 10 00 00 40 00 00 00"); // integrity at 64
    EXPECT_EQ(Hex(descriptor.substr(440, 6)), "01 06 01 00 00 00");       // 3/10.7.2
    EXPECT_TRUE(IsZeros(descriptor.substr(446)));
}

TEST_F(UdfVolumeTest, UnallocatedSpaceDescriptorIsEmptyAndATerminatorEndsTheSequence)
{
    const std::string image = Bytes();

    EXPECT_EQ(TagOf(Part(image, 36, 0, 24)), "07 00 02 00 | 01 00 | 08 00 | 24 00 00 00");
    EXPECT_TRUE(IsSealed(Part(image, 36, 0, 24)));
    EXPECT_EQ(HexOf(image, 36, 16, 8), "04 00 00 00 00 00 00 00"); // 3/10.8
    EXPECT_TRUE(IsZeros(Part(image, 36, 24, 2024)));
    EXPECT_EQ(HexOf(image, 37, 0, 16), // 3/10.9; the CRC of zeros is 0
        "08 00 02 00 21 00 01 00 00 00 F0 01 25 00 00 00");
    EXPECT_TRUE(IsZeros(Part(image, 37, 16, 11 * kSector - 16)));
}

TEST_F(UdfVolumeTest, ReserveSequenceHoldsTheSameDescriptors)
{
    const std::string image = Bytes();

    for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(Part(image, 48 + i, 16, 2032), Part(image, 32 + i, 16, 2032)) << i;
        EXPECT_EQ(HexOf(image, 48 + i, 0, 4), HexOf(image, 32 + i, 0, 4)) << i;
    }
    EXPECT_EQ(HexOf(image, 48, 12, 4), "30 00 00 00");
    EXPECT_TRUE(IsSealed(Part(image, 48, 0, kSector)));
    EXPECT_EQ(HexOf(image, 53, 12, 4), "35 00 00 00");
}

TEST_F(UdfVolumeTest, IntegrityDescriptorClosesTheVolume)
{
    const std::string image = Bytes();
    const std::string_view descriptor = Part(image, 64, 0, kSector);

    EXPECT_EQ(TagOf(descriptor), "09 00 02 00 | 01 00 | 76 00 | 40 00 00 00");
    EXPECT_TRUE(IsSealed(descriptor));
    EXPECT_EQ(Hex(descriptor.substr(16, 12)), kUdfMoment);
    EXPECT_EQ(Hex(descriptor.substr(28, 4)), "01 00 00 00"); // 3/10.10.3: closed
    EXPECT_TRUE(IsZeros(descriptor.substr(32, 8)));          // no further extent
    // Next unique ID: 16, two directories, two files, and one for each of three names.
    EXPECT_EQ(Hex(descriptor.substr(40, 8)), "17 00 00 00 00 00 00 00");
    EXPECT_TRUE(IsZeros(descriptor.substr(48, 24)));
    EXPECT_EQ(Hex(descriptor.substr(72, 8)), "01 00 00 00 2E 00 00 00");
    EXPECT_EQ(Hex(descriptor.substr(80, 8)), "00 00 00 00 0B 00 00 00"); // free, size
    EXPECT_EQ(descriptor.substr(88, 32), kImplementation);
    EXPECT_EQ(Hex(descriptor.substr(120, 14)), // UDF 2.2.6.4: 2 files, 2 directories, 1.02
        "02 00 00 00 02 00 00 00 02 01 02 01 02 01");
    EXPECT_EQ(TagOf(Part(image, 65, 0, 512)), "08 00 02 00 | 01 00 | F0 01 | 41 00 00 00");
}

TEST_F(UdfVolumeTest, FileSetNamesTheVolumeAndItsRoot)
{
    const std::string image = Bytes();
    const std::string_view descriptor = Part(image, 257, 0, kSector);

    EXPECT_EQ(TagOf(descriptor), "00 01 02 00 | 01 00 | F0 01 | 00 00 00 00"); // block 0
    EXPECT_TRUE(IsSealed(descriptor));
    EXPECT_EQ(Hex(descriptor.substr(16, 12)), kUdfMoment);
    EXPECT_EQ(Hex(descriptor.substr(28, 20)), // 4/14.1.3-8: levels 3, CS0, numbers 0
        "03 00 03 00 01 00 00 00 01 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(descriptor.substr(48, 64), kCharacterSet);
    EXPECT_EQ(descriptor.substr(112, 128), DStringOf("HOLIDAY", 128));
    EXPECT_EQ(descriptor.substr(240, 64), kCharacterSet);
    EXPECT_EQ(descriptor.substr(304, 32), DStringOf("HOLIDAY", 32));
    EXPECT_TRUE(IsZeros(descriptor.substr(336, 64))); // no copyright and no abstract file
    EXPECT_EQ(Hex(descriptor.substr(400, 16)),        // 4/14.1.15: block 2 of partition 0
        "00 08 00 00 02 00 00 00 00 00 00 00 00 00 00 00");
    EXPECT_EQ(descriptor.substr(416, 32), Entity("*OSTA UDF Compliant", "\x02\x01\x03"));
    EXPECT_TRUE(IsZeros(descriptor.substr(448)));
    EXPECT_EQ(TagOf(Part(image, 258, 0, 512)), "08 00 02 00 | 01 00 | F0 01 | 01 00 00 00");
}

TEST_F(UdfVolumeTest, LongNamesAreCutWhereTheFieldIsShort)
{
    options.volumeName = "A name of thirty-two characters!";

    const std::string image = Bytes();

    EXPECT_EQ(Part(image, 35, 84, 128), DStringOf("A name of thirty-two characters!", 128));
    EXPECT_EQ(Part(image, 32, 24, 32), DStringOf("A name of thirty-two character", 32)); // 30
    EXPECT_EQ(Part(image, 257, 304, 32), DStringOf("A name of thirty-two character", 32));
}

TEST_F(UdfVolumeTest, SectorsBetweenTheFixedOnesAreZeros)
{
    const std::string image = Bytes();

    EXPECT_TRUE(IsZeros(Part(image, 66, 0, 190 * kSector)));
    EXPECT_TRUE(IsZeros(Part(image, 268, 0, 179 * kSector))); // padding before the last anchor
}

} // namespace velmora::test
