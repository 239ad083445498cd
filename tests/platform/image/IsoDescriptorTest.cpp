// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/image/ImageBench.h"

// Positions are counted from 0: BP of ECMA-119 minus one.

namespace velmora::test {

namespace {

std::string Blanks(std::size_t count) { return std::string(count, ' '); }

/// Blanks of two bytes, high byte first.
std::string WideBlanks(std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += std::string_view("\0 ", 2);
    return text;
}

} // namespace

/// A directory with one file and a file beside it, in plain ISO 9660.
class IsoDescriptorTest : public ImageBench {
protected:
    IsoDescriptorTest()
    {
        options.strict = true;
        Choose(true, false, false);
        AddDirectory("ALPHA");
        AddFile("ALPHA/INNER.TXT", "inner");
        AddFile("READ.ME", std::string(2049, 'r'));
    }
};

TEST_F(IsoDescriptorTest, TheSystemAreaIsZeros)
{
    EXPECT_TRUE(IsZeros(Bytes().substr(0, 32768))); // ECMA-119 6.2.1
}

TEST_F(IsoDescriptorTest, PrimaryDescriptorBeginsWithType1AndCD001)
{
    EXPECT_EQ(HexOf(Bytes(), 16, 0, 8), "01 43 44 30 30 31 01 00"); // 8.4.1-8.4.4
}

TEST_F(IsoDescriptorTest, PrimaryDescriptorNamesSystemAndVolume)
{
    const std::string image = Bytes();

    EXPECT_EQ(Part(image, 16, 8, 32), "LINUX" + Blanks(27));    // 8.4.5
    EXPECT_EQ(Part(image, 16, 40, 32), "HOLIDAY" + Blanks(25)); // 8.4.6
    EXPECT_TRUE(IsZeros(Part(image, 16, 72, 8)));               // 8.4.7
}

TEST_F(IsoDescriptorTest, PrimaryDescriptorHoldsSizesInBothOrders)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 16, 80, 8), "C0 00 00 00 00 00 00 C0");  // 8.4.8: 192 sectors
    EXPECT_TRUE(IsZeros(Part(image, 16, 88, 32)));                  // 8.4.9
    EXPECT_EQ(HexOf(image, 16, 120, 4), "01 00 00 01");             // 8.4.10: one volume
    EXPECT_EQ(HexOf(image, 16, 124, 4), "01 00 00 01");             // 8.4.11: the first
    EXPECT_EQ(HexOf(image, 16, 128, 4), "00 08 08 00");             // 8.4.12: 2048 bytes
    EXPECT_EQ(HexOf(image, 16, 132, 8), "18 00 00 00 00 00 00 18"); // 8.4.13: 24 bytes
}

TEST_F(IsoDescriptorTest, PrimaryDescriptorPointsToBothPathTables)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 16, 140, 4), "12 00 00 00"); // 8.4.14: L, little only
    EXPECT_EQ(HexOf(image, 16, 144, 4), "00 00 00 00"); // 8.4.15: no second one
    EXPECT_EQ(HexOf(image, 16, 148, 4), "00 00 00 13"); // 8.4.16: M, big only
    EXPECT_EQ(HexOf(image, 16, 152, 4), "00 00 00 00"); // 8.4.17
}

TEST_F(IsoDescriptorTest, PrimaryDescriptorHoldsTheRootsRecord)
{
    EXPECT_EQ(HexOf(Bytes(), 16, 156, 34), // 8.4.18, 9.1
        "22 00 "
        "14 00 00 00 00 00 00 14 " // sector 20
        "00 08 00 00 00 00 08 00 " // 2048 bytes
        "7E 03 09 07 05 04 00 "    // 2026-03-09 07:05:04 UTC
        "02 00 00 01 00 00 01 01 00");
}

TEST_F(IsoDescriptorTest, PrimaryDescriptorFillsItsTextsWithBlanks)
{
    const std::string image = Bytes();

    EXPECT_EQ(Part(image, 16, 190, 128), Blanks(128));             // 8.4.19 volume set
    EXPECT_EQ(Part(image, 16, 318, 128), Blanks(128));             // 8.4.20 publisher
    EXPECT_EQ(Part(image, 16, 446, 128), Blanks(128));             // 8.4.21 preparer
    EXPECT_EQ(Part(image, 16, 574, 128), "VELMORA" + Blanks(121)); // 8.4.22 application
    EXPECT_EQ(Part(image, 16, 702, 37), Blanks(37));               // 8.4.23 copyright file
    EXPECT_EQ(Part(image, 16, 739, 37), Blanks(37));               // 8.4.24 abstract file
    EXPECT_EQ(Part(image, 16, 776, 37), Blanks(37));               // 8.4.25 bibliographic file
}

TEST_F(IsoDescriptorTest, PrimaryDescriptorHoldsItsFourMoments)
{
    const std::string image = Bytes();
    const std::string moment = std::string("2026030907050412") + '\0';
    const std::string notGiven = std::string("0000000000000000") + '\0';

    EXPECT_EQ(Part(image, 16, 813, 17), moment);   // 8.4.26 creation
    EXPECT_EQ(Part(image, 16, 830, 17), moment);   // 8.4.27 modification
    EXPECT_EQ(Part(image, 16, 847, 17), notGiven); // 8.4.28 expiration
    EXPECT_EQ(Part(image, 16, 864, 17), notGiven); // 8.4.29 effective
}

TEST_F(IsoDescriptorTest, PrimaryDescriptorEndsInItsVersionAndZeros)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 16, 881, 2), "01 00");     // 8.4.30, 8.4.31
    EXPECT_TRUE(IsZeros(Part(image, 16, 883, 512)));  // 8.4.32
    EXPECT_TRUE(IsZeros(Part(image, 16, 1395, 653))); // 8.4.33
}

TEST_F(IsoDescriptorTest, TerminatorFollowsTheLastDescriptor)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 17, 0, 7), "FF 43 44 30 30 31 01"); // 8.3.1-8.3.3
    EXPECT_TRUE(IsZeros(Part(image, 17, 7, 2041)));            // 8.3.4
}

TEST_F(IsoDescriptorTest, PlainImagesHaveNoRecognitionSequence)
{
    EXPECT_EQ(Bytes().find("BEA01"), std::string::npos);
}

TEST_F(IsoDescriptorTest, VolumeNameIsReducedToDCharacters)
{
    options.volumeName = "été 2026";
    EXPECT_EQ(Part(Bytes(), 16, 40, 32), "ETE_2026" + Blanks(24));
}

/// The same tree with Joliet.
class JolietDescriptorTest : public IsoDescriptorTest {
protected:
    JolietDescriptorTest() { Choose(true, true, false); }
};

TEST_F(JolietDescriptorTest, StandsBetweenPrimaryDescriptorAndTerminator)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 16, 0, 7), "01 43 44 30 30 31 01");
    EXPECT_EQ(HexOf(image, 17, 0, 8), "02 43 44 30 30 31 01 00"); // ECMA-119 8.5.1-8.5.3
    EXPECT_EQ(HexOf(image, 18, 0, 7), "FF 43 44 30 30 31 01");
}

TEST_F(JolietDescriptorTest, EscapeSequenceSaysUcs2Level3)
{
    const std::string image = Bytes();

    EXPECT_EQ(Part(image, 17, 88, 3), "%/E"); // Joliet: SVD Escape Sequences Field
    EXPECT_TRUE(IsZeros(Part(image, 17, 91, 29)));
}

TEST_F(JolietDescriptorTest, TextsAreUcs2WithTheHighByteFirst)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 17, 8, 12), "00 4C 00 49 00 4E 00 55 00 58 00 20"); // "LINUX "
    EXPECT_EQ(HexOf(image, 17, 40, 16), "00 48 00 4F 00 4C 00 49 00 44 00 41 00 59 00 20");
    EXPECT_EQ(Part(image, 17, 56, 16), WideBlanks(8));
    EXPECT_EQ(Part(image, 17, 190, 128), WideBlanks(64));
    EXPECT_EQ(Part(image, 17, 318, 256), WideBlanks(128));
    EXPECT_EQ(HexOf(image, 17, 574, 16), "00 56 00 45 00 4C 00 4D 00 4F 00 52 00 41 00 20");
}

TEST_F(JolietDescriptorTest, FieldsOfOddLengthEndInAZero)
{
    const std::string image = Bytes();
    const std::string blank = WideBlanks(18) + '\0';

    EXPECT_EQ(Part(image, 17, 702, 37), blank);
    EXPECT_EQ(Part(image, 17, 739, 37), blank);
    EXPECT_EQ(Part(image, 17, 776, 37), blank);
}

TEST_F(JolietDescriptorTest, PointsToPathTablesAndRootOfItsOwn)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 17, 80, 8), "C0 00 00 00 00 00 00 C0");  // 192 sectors
    EXPECT_EQ(HexOf(image, 17, 132, 8), "1C 00 00 00 00 00 00 1C"); // 28 bytes
    EXPECT_EQ(HexOf(image, 17, 140, 8), "17 00 00 00 00 00 00 00"); // L
    EXPECT_EQ(HexOf(image, 17, 148, 8), "00 00 00 18 00 00 00 00"); // M
    EXPECT_EQ(HexOf(image, 17, 156, 10), "22 00 19 00 00 00 00 00 00 19");
}

TEST_F(JolietDescriptorTest, VolumeNameIsCutAt16Units)
{
    options.volumeName = "Vacances à la montagne";
    EXPECT_EQ(HexOf(Bytes(), 17, 40, 32),
        "00 56 00 61 00 63 00 61 00 6E 00 63 00 65 00 73 "  // "Vacances"
        "00 20 00 E0 00 20 00 6C 00 61 00 20 00 6D 00 6F"); // " à la mo"
}

TEST_F(JolietDescriptorTest, VolumeNameIsNotCutBetweenSurrogates)
{
    options.volumeName = "fifteen letters😀"; // the pair would be units 16 and 17
    EXPECT_EQ(HexOf(Bytes(), 17, 66, 6), "00 72 00 73 00 20");
}

TEST_F(JolietDescriptorTest, VolumeNameHasNoForbiddenCharacters)
{
    options.volumeName = "a*b/c";
    EXPECT_EQ(HexOf(Bytes(), 17, 40, 12), "00 61 00 5F 00 62 00 5F 00 63 00 20");
}

} // namespace velmora::test
