// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/IsoFormat.h"
#include "tests/platform/image/ImageBench.h"

namespace velmora::test {

using image::ToRecordTime;
using image::ToVolumeTime;

namespace {

const std::string kTime = "7E 03 09 07 05 04 00 "; // 2026-03-09 07:05:04 UTC (ECMA-119 9.1.5)

template <class Record> std::string HexOfRecord(const Record& record)
{
    return Hex(image::BytesOf(record));
}

} // namespace

/// A directory with one file and a file beside it, in plain ISO 9660: path tables in sectors 18
/// and 19, the root in 20, ALPHA in 21, data from 22 on.
class IsoRecordTest : public ImageBench {
protected:
    IsoRecordTest()
    {
        options.strict = true;
        Choose(true, false, false);
        AddDirectory("ALPHA");
        AddFile("ALPHA/INNER.TXT", "inner");
        AddFile("READ.ME", std::string(2049, 'r'));
    }
};

TEST_F(IsoRecordTest, RootNamesItselfTwice)
{
    const std::string image = Bytes();
    const std::string place = "14 00 00 00 00 00 00 14 00 08 00 00 00 00 08 00 ";

    // ECMA-119 6.8.2.2: "." is one byte 0, ".." one byte 1, in the root both the root.
    EXPECT_EQ(HexOf(image, 20, 0, 34), "22 00 " + place + kTime + "02 00 00 01 00 00 01 01 00");
    EXPECT_EQ(HexOf(image, 20, 34, 34), "22 00 " + place + kTime + "02 00 00 01 00 00 01 01 01");
}

TEST_F(IsoRecordTest, DirectoryHasItsFlagAndNoVersion)
{
    EXPECT_EQ(HexOf(Bytes(), 20, 68, 38), // 9.1
        "26 00 15 00 00 00 00 00 00 15 00 08 00 00 00 00 08 00 " + kTime
            + "02 00 00 01 00 00 01 05 41 4C 50 48 41");
}

TEST_F(IsoRecordTest, FileHasItsExactLengthAndVersion1)
{
    EXPECT_EQ(HexOf(Bytes(), 20, 106, 42),
        "2A 00 16 00 00 00 00 00 00 16 01 08 00 00 00 00 08 01 " + kTime // 2049 bytes
            + "00 00 00 01 00 00 01 09 52 45 41 44 2E 4D 45 3B 31");
}

TEST_F(IsoRecordTest, RestOfADirectorysSectorIsZeros)
{
    EXPECT_TRUE(IsZeros(Part(Bytes(), 20, 148, 1900))); // 6.8.1.1
}

TEST_F(IsoRecordTest, ParentRecordHasTheParentsPlaceAndSize)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 21, 0, 18), "22 00 15 00 00 00 00 00 00 15 00 08 00 00 00 00 08 00");
    EXPECT_EQ(HexOf(image, 21, 34, 18), "22 00 14 00 00 00 00 00 00 14 00 08 00 00 00 00 08 00");
    EXPECT_EQ(HexOf(image, 21, 66, 2), "01 01");
}

TEST_F(IsoRecordTest, DataFollowTheDirectories)
{
    const std::string image = Bytes();

    EXPECT_EQ(Part(image, 22, 0, 2049), std::string(2049, 'r'));
    EXPECT_TRUE(IsZeros(Part(image, 22, 2049, 2047)));
    EXPECT_EQ(Part(image, 24, 0, 5), "inner");
    EXPECT_TRUE(IsZeros(image.substr(24 * kSector + 5))); // the sector's rest and the padding
    EXPECT_EQ(image.size(), 192 * kSector);
}

TEST_F(IsoRecordTest, IdentifierOfEvenLengthIsPadded)
{
    AddFile("ZZ.A", "");
    EXPECT_EQ(HexOf(Bytes(), 20, 148, 2), "28 00");                   // 33 + 6 + 1
    EXPECT_EQ(HexOf(Bytes(), 20, 180, 8), "06 5A 5A 2E 41 3B 31 00"); // 9.1.12
}

TEST_F(IsoRecordTest, PathTableLHasLowBytesFirst)
{
    EXPECT_EQ(HexOf(Bytes(), 18, 0, 24), // 9.4: the root, its name one zero byte, number 1
        "01 00 14 00 00 00 01 00 00 00 "
        "05 00 15 00 00 00 01 00 41 4C 50 48 41 00");
}

TEST_F(IsoRecordTest, PathTableMHasHighBytesFirst)
{
    EXPECT_EQ(HexOf(Bytes(), 19, 0, 24),
        "01 00 00 00 00 14 00 01 00 00 "
        "05 00 00 00 00 15 00 01 41 4C 50 48 41 00");
}

TEST_F(IsoRecordTest, PathTablesGoLevelByLevel)
{
    AddDirectory("ALPHA/C");
    AddDirectory("B");
    AddDirectory("B/A");

    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 18, 10, 44), // 6.9.1: by level, then by the parent's number, then name
        "05 00 15 00 00 00 01 00 41 4C 50 48 41 00 "    // 2: ALPHA in 1
        "01 00 16 00 00 00 01 00 42 00 "                // 3: B in 1
        "01 00 17 00 00 00 02 00 43 00 "                // 4: C in 2
        "01 00 18 00 00 00 03 00 41 00");               // 5: A in 3
    EXPECT_EQ(HexOf(image, 16, 132, 4), "36 00 00 00"); // 54 bytes
}

TEST_F(IsoRecordTest, JolietRecordsAreUcs2WithoutVersion)
{
    Choose(true, true, false);

    const std::string image = Bytes();

    // The Joliet root lies in sector 25; names of 7 units and of 5 units.
    EXPECT_EQ(HexOf(image, 25, 68, 44),
        "2C 00 1A 00 00 00 00 00 00 1A 00 08 00 00 00 00 08 00 " + kTime
            + "02 00 00 01 00 00 01 0A 00 41 00 4C 00 50 00 48 00 41 00");
    EXPECT_EQ(HexOf(image, 25, 112, 48),
        "30 00 1B 00 00 00 00 00 00 1B 01 08 00 00 00 00 08 01 " + kTime
            + "00 00 00 01 00 00 01 0E 00 52 00 45 00 41 00 44 00 2E 00 4D 00 45 00");
}

TEST_F(IsoRecordTest, JolietParentRecordHasTheJolietParentsPlace)
{
    Choose(true, true, false);
    EXPECT_EQ(HexOf(Bytes(), 26, 34, 18), "22 00 19 00 00 00 00 00 00 19 00 08 00 00 00 00 08 00");
}

TEST_F(IsoRecordTest, JolietPathTablesHoldWideNames)
{
    Choose(true, true, false);

    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 23, 0, 28),
        "01 00 19 00 00 00 01 00 00 00 "
        "0A 00 1A 00 00 00 01 00 00 41 00 4C 00 50 00 48 00 41");
    EXPECT_EQ(HexOf(image, 24, 0, 28),
        "01 00 00 00 00 19 00 01 00 00 "
        "0A 00 00 00 00 1A 00 01 00 41 00 4C 00 50 00 48 00 41");
}

TEST_F(IsoRecordTest, RecordsNeverCrossASector)
{
    for (int i = 100; i < 150; ++i) // 50 records of 42 bytes after the 148 that are there
        AddFile("Z" + std::to_string(i) + ".TX", "");

    const std::string image = Bytes();

    // 45 of them end at 2038; the next one would pass the sector's end (6.8.1.1).
    EXPECT_EQ(HexOf(image, 16, 166, 8), "00 10 00 00 00 00 10 00"); // the root takes two sectors
    EXPECT_EQ(Part(image, 20, 2038 - 9, 9), "Z144.TX;1");
    EXPECT_TRUE(IsZeros(Part(image, 20, 2038, 10)));
    EXPECT_EQ(HexOf(image, 21, 0, 2), "2A 00");
    EXPECT_EQ(Part(image, 21, 33, 9), "Z145.TX;1");
}

TEST_F(IsoRecordTest, RecordsThatEndWithTheSectorLeaveNoGap)
{
    constexpr std::string_view kSigns = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    AddFile("S.T", ""); // 38 bytes, up to 186; 49 more of them end with the sector
    for (const char sign : kSigns)
        AddFile(std::string("S") + sign, "");
    for (const char sign : kSigns.substr(0, 14))
        AddFile(std::string("T") + sign, "");

    const std::string image = Bytes();

    EXPECT_EQ(Part(image, 20, 2043, 5), "TC.;1");
    EXPECT_EQ(Part(image, 21, 33, 5), "TD.;1");
}

TEST(IsoTimeTest, RecordTimeCountsYearsFrom1900)
{
    EXPECT_EQ(HexOfRecord(ToRecordTime(kMoment.seconds)), "7E 03 09 07 05 04 00"); // 9.1.5
    EXPECT_EQ(HexOfRecord(ToRecordTime(0)), "46 01 01 00 00 00 00");
    EXPECT_EQ(HexOfRecord(ToRecordTime(-1)), "45 0C 1F 17 3B 3B 00");
}

TEST(IsoTimeTest, RecordTimeIsHeldBetween1900And2155)
{
    EXPECT_EQ(HexOfRecord(ToRecordTime(-2208988800)), "00 01 01 00 00 00 00");
    EXPECT_EQ(HexOfRecord(ToRecordTime(-2208988801)), "00 01 01 00 00 00 00");
    EXPECT_EQ(HexOfRecord(ToRecordTime(5869583999)), "FF 0C 1F 17 3B 3B 00");
    EXPECT_EQ(HexOfRecord(ToRecordTime(5869584000)), "FF 0C 1F 17 3B 3B 00");
    EXPECT_EQ(HexOfRecord(ToRecordTime(INT64_MAX)), "FF 0C 1F 17 3B 3B 00");
    EXPECT_EQ(HexOfRecord(ToRecordTime(INT64_MIN)), "00 01 01 00 00 00 00");
}

TEST(IsoTimeTest, VolumeTimeIs16DigitsAndAnOffset)
{
    using namespace std::string_literals;
    const auto digits = [](image::TimeStamp time) {
        const image::VolumeTime recorded = ToVolumeTime(time);
        return std::string(image::BytesOf(recorded));
    };
    EXPECT_EQ(digits(kMoment), "2026030907050412\0"s); // 8.4.26.1
    EXPECT_EQ(digits({0, 999999}), "1970010100000099\0"s);
    EXPECT_EQ(digits({-2208988801, 0}), "1900010100000000\0"s);
    EXPECT_EQ(digits({5869584000, 0}), "2155123123595900\0"s);
}

TEST(IsoTimeTest, VolumeTimeThatIsNotGivenIsZerosInDigits)
{
    const image::VolumeTime none;
    EXPECT_EQ(image::BytesOf(none), std::string_view("0000000000000000\0", 17));
}

} // namespace velmora::test
