// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/base/Crc.h"
#include "image/udf/UdfVolume.h"
#include "tests/platform/image/UdfBench.h"

namespace velmora::test {

using namespace image;

namespace {

template <std::size_t N> std::string DStringBytes(std::string_view text)
{
    const std::array<char, N> field = DString<N>(text);
    return {field.data(), field.size()};
}

std::string HexOfTime(TimeStamp time)
{
    const UdfTime recorded = ToUdfTime(time);
    return Hex(BytesOf(recorded));
}

} // namespace

TEST(CrcTest, HasTheValueOfTheStandardsExample)
{
    EXPECT_EQ(Crc16("\x70\x6A\x77"), 0x3299); // UDF 6.5
}

TEST(CrcTest, HasTheCheckValueOfItsPolynomial)
{
    EXPECT_EQ(Crc16("123456789"), 0x31C3); // polynomial 0x1021, start 0, not reflected
    EXPECT_EQ(Crc16(""), 0);
    EXPECT_EQ(Crc16(std::string(496, '\0')), 0);
}

TEST(CrcTest, IsTheSameBitByBitAtEveryLength)
{
    std::string bytes;
    for (int i = 0; i < 67; ++i) {
        EXPECT_EQ(Crc16(bytes), BitwiseCrc(bytes)) << i;
        bytes += static_cast<char>(i * 37 + 11);
    }
}

TEST(UdfTagTest, TagHoldsChecksumCrcAndLocation)
{
    std::string descriptor = std::string(16, 'x') + "\x70\x6A\x77";

    Seal(descriptor, TagId::FileEntry, 3, 0x01020304);

    // ECMA-167 3/7.2: identifier 261, version 3, checksum, 0, serial number 1, CRC 0x3299 over
    // 3 bytes, location. Checksum: 05 + 01 + 03 + 01 + 99 + 32 + 03 + 04 + 03 + 02 + 01 = E2.
    EXPECT_EQ(Hex(descriptor), "05 01 03 00 E2 00 01 00 99 32 03 00 04 03 02 01 70 6A 77");
}

TEST(UdfTagTest, ChecksumIsModulo256)
{
    std::string descriptor(16, '\0');
    Seal(descriptor, TagId::AnchorVolume, 2, 0xFFFFFFFF);
    // 02 + 02 + 01 + 4 * FF = 0x401
    EXPECT_EQ(Hex(descriptor), "02 00 02 00 01 00 01 00 00 00 00 00 FF FF FF FF");
}

TEST(UdfTagTest, EntityIdentifiersHaveTheirSuffixes)
{
    const EntityId domain = DomainId(0x0250);
    const EntityId udf = UdfId("*UDF LV Info", 0x0102);
    const EntityId program = ImplementationId();

    EXPECT_EQ(Hex(BytesOf(domain).substr(24)), "50 02 03 00 00 00 00 00");  // UDF 2.1.5.3
    EXPECT_EQ(Hex(BytesOf(udf).substr(24)), "02 01 04 05 00 00 00 00");     // revision, OS
    EXPECT_EQ(Hex(BytesOf(program).substr(24)), "04 05 00 00 00 00 00 00"); // only the OS
    EXPECT_EQ(BytesOf(program).substr(0, 9), std::string_view("\0*Velmora", 9));
}

TEST(UdfTimeTest, TimeGoesDownToTheMicrosecond)
{
    EXPECT_EQ(HexOfTime(kMoment), kUdfMoment);
    EXPECT_EQ(HexOfTime({0, 0}), "00 10 B2 07 01 01 00 00 00 00 00 00");
    EXPECT_EQ(HexOfTime({0, 999999}), "00 10 B2 07 01 01 00 00 00 63 63 63");
    EXPECT_EQ(HexOfTime({0, 10100}), "00 10 B2 07 01 01 00 00 00 01 01 00");
    EXPECT_EQ(HexOfTime({-1, 1}), "00 10 B1 07 0C 1F 17 3B 3B 00 00 01");
}

TEST(UdfTimeTest, TimeIsHeldBetweenTheYears1And9999)
{
    EXPECT_EQ(HexOfTime({INT64_MIN, 0}), "00 10 01 00 01 01 00 00 00 00 00 00");
    EXPECT_EQ(HexOfTime({INT64_MAX, 0}), "00 10 0F 27 0C 1F 17 3B 3B 00 00 00");
}

TEST(UdfStringTest, DStringHasIdTextZerosAndLength)
{
    EXPECT_EQ(DStringBytes<32>("HOLIDAY"), DStringOf("HOLIDAY", 32));
    EXPECT_EQ(Hex(DStringBytes<32>("é")), // U+00E9 fits into a byte
        "08 E9 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 02");
    EXPECT_EQ(Hex(DStringBytes<32>("Ω")),
        "10 03 A9 00 00 00 00 00 00 00 00 00 00 00 00 00 "
        "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 03");
}

TEST(UdfStringTest, EmptyDStringIsAllZeros) { EXPECT_TRUE(IsZeros(DStringBytes<32>(""))); }

TEST(UdfStringTest, DStringHolds30BytesOr15Units)
{
    EXPECT_EQ(DStringBytes<32>(std::string(30, 'a')), DStringOf(std::string(30, 'a'), 32));
    EXPECT_EQ(DStringBytes<32>(std::string(31, 'a')), DStringOf(std::string(30, 'a'), 32));
    std::string sixteen = "Ω";
    for (int i = 0; i < 15; ++i)
        sixteen += "a";
    const std::string field = DStringBytes<32>(sixteen);
    EXPECT_EQ(Hex(field.substr(0, 5)), "10 03 A9 00 61");
    EXPECT_EQ(Hex(field.substr(27)), "00 61 00 61 1F"); // 15 units, 31 bytes with the ID
}

TEST(UdfStringTest, DStringOf128Holds126BytesOr63Units)
{
    EXPECT_EQ(DStringBytes<128>(std::string(127, 'a')), DStringOf(std::string(126, 'a'), 128));
    const std::string field = DStringBytes<128>("Ω" + std::string(63, 'a'));
    EXPECT_EQ(Hex(field.substr(125)), "00 61 7F"); // 63 units, 127 bytes with the ID
}

TEST(UdfStringTest, DStringIsNotCutBetweenSurrogates)
{
    const std::string field = DStringBytes<32>(std::string(14, 'a') + "😀");
    EXPECT_EQ(Hex(field.substr(27)), "00 61 00 00 1D"); // 14 units
}

TEST(UdfEntryTest, OneEntryDescribesAsManyExtentsAsFitIntoItsBlock)
{
    // (2048 - 176) / 8 = 234, (2048 - 216) / 8 = 229 and / 16 = 114 extents of 2^30 - 2048 bytes.
    EXPECT_EQ(MaxUdfFileSize(0x0102), 251255107584U);
    EXPECT_EQ(MaxUdfFileSize(0x0200), 245886408704U);
    EXPECT_EQ(MaxUdfFileSize(0x0250), 122406334464U);
}

TEST(UdfEntryTest, LargestFilesEntryFillsItsBlockAndNoMore)
{
    UdfPlaces places;
    UdfEntryFacts facts;
    facts.size = 251255107584;
    const std::string entry = MakeFileEntry(facts, places, 7);

    EXPECT_EQ(entry.size(), 2048U);
    EXPECT_TRUE(IsSealed(entry));
    EXPECT_EQ(Hex(entry.substr(2040)), "00 F8 FF 3F 17 FF 47 07"); // the 234th, whole
}

TEST(UdfEntryTest, ExtentOfOneByteMoreIsAnotherOne)
{
    UdfPlaces places;
    UdfEntryFacts facts;
    facts.firstBlock = 5;
    facts.size = 0x3FFFF800;
    EXPECT_EQ(
        Hex(MakeFileEntry(facts, places, 0).substr(172)), "08 00 00 00 00 F8 FF 3F 05 00 00 00");
    facts.size = 0x3FFFF801;
    EXPECT_EQ(Hex(MakeFileEntry(facts, places, 0).substr(172)),
        "10 00 00 00 00 F8 FF 3F 05 00 00 00 01 00 00 00 04 00 08 00");
}

} // namespace velmora::test
