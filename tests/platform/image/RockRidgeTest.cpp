// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/RockRidge.h"

#include "tests/platform/image/ImageBench.h"

namespace velmora::test {

namespace {

// PX (RRIP 4.1.1): mode, links, owner and group, each in both orders.
const std::string kNoOwner = "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 ";
const std::string kDirectoryPx = "50 58 24 01 ED 41 00 00 00 00 41 ED "; // 0040755
const std::string kFilePx = "50 58 24 01 A4 81 00 00 00 00 81 A4 ";      // 0100644
const std::string kOne = "01 00 00 00 00 00 00 01 ";
const std::string kTwo = "02 00 00 00 00 00 00 02 ";
const std::string kThree = "03 00 00 00 00 00 00 03 ";

// TF (RRIP 4.1.6): the moment of the last change, 7 bytes.
const std::string kTf = "54 46 0C 01 02 7E 03 09 07 05 04 00";

} // namespace

/// Lower-case names, as Linux has them. Path tables in sectors 18 and 19, the root in 20.
class RockRidgeTest : public ImageBench {
protected:
    RockRidgeTest()
    {
        Choose(true, false, false);
        AddDirectory("docs");
        AddFile("read.me", "text");
    }
};

TEST_F(RockRidgeTest, RootsRecordSaysThatFieldsFollow)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 20, 0, 1), "94");                    // 34 + 7 + 36 + 12 + 59
    EXPECT_EQ(HexOf(image, 20, 34, 7), "53 50 07 01 BE EF 00"); // SP (SUSP 5.3)
    EXPECT_EQ(HexOf(image, 20, 41, 48), kDirectoryPx + kThree + kNoOwner + kTf);
}

TEST_F(RockRidgeTest, RootsRecordNamesTheExtension)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 20, 89, 8), "45 52 3B 01 0A 1F 0A 01"); // ER (SUSP 5.5)
    EXPECT_EQ(Part(image, 20, 97, 51), "RRIP_1991ANames, modes and times of POSIXIEEE P1282");
}

TEST_F(RockRidgeTest, TheDescriptorsRootRecordStaysAt34Bytes)
{
    EXPECT_EQ(HexOf(Bytes(), 16, 156, 1), "22"); // ECMA-119 8.4.18
}

TEST_F(RockRidgeTest, ParentRecordHasAttributesButNoName)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 20, 148, 1), "52"); // 34 + 36 + 12
    EXPECT_EQ(HexOf(image, 20, 182, 48), kDirectoryPx + kThree + kNoOwner + kTf);
}

TEST_F(RockRidgeTest, DirectoryKeepsItsName)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 20, 230, 1), "60"); // 33 + 4 + 1 + 48 + 9, made even
    EXPECT_EQ(Part(image, 20, 263, 4), "DOCS");
    EXPECT_EQ(HexOf(image, 20, 268, 58),
        kDirectoryPx + kTwo + kNoOwner + kTf + " 4E 4D 09 01 00 64 6F 63 73 00");
}

TEST_F(RockRidgeTest, FileKeepsItsNameModeAndTime)
{
    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 20, 326, 1), "66"); // 33 + 9 + 48 + 12
    EXPECT_EQ(Part(image, 20, 359, 9), "READ.ME;1");
    EXPECT_EQ(HexOf(image, 20, 368, 60),
        kFilePx + kOne + kNoOwner + kTf + " 4E 4D 0C 01 00 72 65 61 64 2E 6D 65"); // NM, RRIP 4.1.4
}

TEST_F(RockRidgeTest, LinksOfAFileAreItsNames)
{
    const std::string file = Write("shared", "text");
    ASSERT_TRUE(tree->AddFile("s1", file));
    ASSERT_TRUE(tree->AddFile("s2", file));

    const std::string image = Bytes();

    EXPECT_EQ(Part(image, 20, 428 + 33, 5), "S1.;1");
    EXPECT_EQ(HexOf(image, 20, 428 + 38, 20), kFilePx + "02 00 00 00 00 00 00 02");
}

TEST_F(RockRidgeTest, AttributesHaveTypeModeAndOwner)
{
    image::Attributes attributes;
    attributes.mode = 04710;
    attributes.owner = {1000, 100};

    EXPECT_EQ(Hex(image::BytesOf(image::PosixOf(image::NodeKind::File, attributes, 1))),
        "50 58 24 01 C8 89 00 00 00 00 89 C8 " + kOne // 0104710
            + "E8 03 00 00 00 00 03 E8 64 00 00 00 00 00 00 64");
}

TEST_F(RockRidgeTest, StrictImagesHaveNoFields)
{
    options.strict = true;

    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 20, 0, 1), "22");
    EXPECT_EQ(image.find("RRIP_1991A"), std::string::npos);
}

TEST_F(RockRidgeTest, JolietRecordsHaveNoFields)
{
    Choose(true, true, false);

    const std::string image = Bytes();

    // The Joliet root lies after two directories and two path tables.
    EXPECT_EQ(HexOf(image, 25, 0, 1), "22");
}

TEST_F(RockRidgeTest, LongNameGoesOnInAContinuationArea)
{
    AddFile(std::string(200, 'x'), "");

    const std::string image = Bytes();

    // The record: 33 + 33 for 30 letters, a dot and ";1", then CE (SUSP 5.1): sector 21 after the
    // root, offset 0, 253 bytes.
    EXPECT_EQ(HexOf(image, 20, 428, 1), "5E");
    EXPECT_EQ(HexOf(image, 20, 494, 28),
        "43 45 1C 01 15 00 00 00 00 00 00 15 00 00 00 00 00 00 00 00 FD 00 00 00 00 00 00 FD");
    EXPECT_EQ(HexOf(image, 21, 0, 53), kFilePx + kOne + kNoOwner + kTf + " 4E 4D CD 01 00");
    EXPECT_EQ(Part(image, 21, 53, 200), std::string(200, 'x'));
    EXPECT_TRUE(IsZeros(Part(image, 21, 253, 1795)));
}

TEST_F(RockRidgeTest, NamesShareAContinuationAreaSectorBySector)
{
    for (char c = 'a'; c <= 'i'; ++c) // nine of 303 bytes each: six fit into a sector
        AddFile(std::string(250, c), "");

    const std::string image = Bytes();

    // Four of the records, 94 bytes each, come before that of docs, 96 bytes. The second's area
    // begins at 303, the seventh's in the next sector: no area crosses a sector's end (SUSP 5.1).
    EXPECT_EQ(HexOf(image, 20, 230 + 94 + 66, 20),
        "43 45 1C 01 15 00 00 00 00 00 00 15 2F 01 00 00 00 00 01 2F");
    EXPECT_EQ(HexOf(image, 20, 230 + 6 * 94 + 96 + 66, 20),
        "43 45 1C 01 16 00 00 00 00 00 00 16 00 00 00 00 00 00 00 00");
    EXPECT_EQ(Part(image, 21, 5 * 303 + 53, 250), std::string(250, 'f'));
    EXPECT_TRUE(IsZeros(Part(image, 21, 6 * 303, 2048 - 6 * 303)));
    EXPECT_EQ(Part(image, 22, 53, 250), std::string(250, 'g'));
}

TEST_F(RockRidgeTest, NameOf250BytesIsOneField)
{
    std::string fields;
    image::AppendAlternateName(fields, std::string(250, 'x'));

    EXPECT_EQ(Hex(fields).substr(0, 20), "4E 4D FF 01 00 78 78");
    EXPECT_EQ(fields.size(), 255U);
}

TEST_F(RockRidgeTest, NameOf255BytesIsTwoFields)
{
    AddFile(std::string(255, 'x'), "");

    const std::string image = Bytes();

    EXPECT_EQ(HexOf(image, 21, 48, 5), "4E 4D FF 01 01"); // 250 bytes, and it continues
    EXPECT_EQ(Part(image, 21, 53, 250), std::string(250, 'x'));
    EXPECT_EQ(HexOf(image, 21, 303, 10), "4E 4D 0A 01 00 78 78 78 78 78");
    EXPECT_TRUE(IsZeros(Part(image, 21, 313, 100)));
}

TEST_F(RockRidgeTest, FieldsOfADirectoryOfAnotherNameLieInAContinuationArea)
{
    AddDirectory("My Files"); // MY_FILES

    const std::string image = Bytes();

    // 33 + 8 + 1 and CE; the fields come after the root, before the two other directories.
    EXPECT_EQ(Part(image, 20, 326 + 33, 8), "MY_FILES");
    EXPECT_EQ(HexOf(image, 20, 326, 1), "46");
    EXPECT_EQ(HexOf(image, 20, 326 + 42, 12), "43 45 1C 01 15 00 00 00 00 00 00 15");
    EXPECT_EQ(HexOf(image, 21, 48, 13), "4E 4D 0D 01 00 4D 79 20 46 69 6C 65 73");
}

TEST_F(RockRidgeTest, AreasOfALevelStandBeforeTheDirectoriesOfTheNext)
{
    AddDirectory("My Files"); // MY_FILES
    AddDirectory("docs/Old Ones");
    AddDirectory("My Files/New Ones");

    const std::string image = Bytes();

    // The root, its area; DOCS and MY_FILES, one area of both; then the two directories below them.
    constexpr std::size_t kRecord = 33 + 8 + 1; // up to CE, of MY_FILES as of what lies below
    EXPECT_EQ(NumberAt(image, 20 * kSector + 326 + 2, 4), 23U); // after DOCS
    EXPECT_EQ(HexOf(image, 21, 48, 13), "4E 4D 0D 01 00 4D 79 20 46 69 6C 65 73");
    EXPECT_EQ(HexOf(image, 22, 164 + kRecord, 12), "43 45 1C 01 18 00 00 00 00 00 00 18");
    EXPECT_EQ(HexOf(image, 23, 164 + kRecord, 12), "43 45 1C 01 18 00 00 00 00 00 00 18");
    EXPECT_EQ(Part(image, 24, 53, 8), "Old Ones");
    EXPECT_EQ(Part(image, 24, 61 + 53, 8), "New Ones");
    EXPECT_EQ(NumberAt(image, 22 * kSector + 164 + 2, 4), 25U);
    EXPECT_EQ(NumberAt(image, 23 * kSector + 164 + 2, 4), 26U);
}

TEST_F(RockRidgeTest, FieldsOfAFileOfAnotherNameStayInItsRecord)
{
    AddFile("My File", "");

    const std::string image = Bytes();

    EXPECT_EQ(Part(image, 20, 326 + 33, 10), "MY_FILE.;1");
    EXPECT_EQ(HexOf(image, 20, 326 + 44 + 48, 12), "4E 4D 0C 01 00 4D 79 20 46 69 6C 65");
}

TEST_F(RockRidgeTest, FieldsOfNamesThatClashedLieInAContinuationArea)
{
    AddFile("Read.Me", ""); // READ.ME is the nearest form of both

    const std::string image = Bytes();

    EXPECT_EQ(Part(image, 20, 326 + 33, 9), "READ.ME;1");
    EXPECT_EQ(Part(image, 21, 53, 7), "Read.Me");
    EXPECT_EQ(Part(image, 21, 60 + 53, 7), "read.me");
}

} // namespace velmora::test
