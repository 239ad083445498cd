// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/image/ImageBench.h"

namespace velmora::test {

using namespace image;

namespace {

std::string SectorsOfLetters(std::size_t count) { return std::string(count * kSector, 'x'); }

} // namespace

/// Plain ISO 9660 unless a test chooses more: path tables in 18 and 19, the root in 20, data from
/// 21 on.
class LayoutTest : public ImageBench {
protected:
    LayoutTest()
    {
        options.strict = true;
        Choose(true, false, false);
    }

    /// Sector of the file whose record begins at a byte of the root directory.
    std::uint64_t SectorInRecord(std::size_t position) const
    {
        return NumberAt(Sectors(20, 1), position + 2, 4);
    }
};

TEST_F(LayoutTest, ImageWithoutEntriesHasARoot)
{
    struct Row {
        FileSystems chosen;
        std::uint32_t sectors;
    };
    for (const Row& row : {Row {{true, false, false}, 192}, // 21 and 150, made a multiple of 32
             Row {{true, true, false}, 192},                // 25
             Row {{false, false, true}, 416},               // 257 + 4 blocks, 150, anchor
             Row {{true, false, true}, 416},                // + 3
             Row {{true, true, true}, 448}}) {              // + 6: 267 and 151
        options.fileSystems = row.chosen;
        const ImagePlan plan = Plan();
        EXPECT_EQ(plan.Sectors(), row.sectors);
        EXPECT_EQ(plan.Files(), 0U);
        EXPECT_EQ(plan.Directories(), 0U);
        EXPECT_EQ(Bytes().size(), row.sectors * kSector);
    }
}

TEST_F(LayoutTest, FilesTakeWholeSectors)
{
    AddFile("A", ""); // 40 bytes each: the identifier is "A.;1" and 4 bytes long
    AddFile("B", "1");
    AddFile("C", std::string(2047, '2'));
    AddFile("D", std::string(2048, '3'));
    AddFile("E", std::string(2049, '4'));
    AddFile("F", "5");

    const std::string image = Bytes();

    EXPECT_EQ(SectorInRecord(68), 21U); // A is empty; its place lies within the volume
    EXPECT_EQ(Part(image, 21, 0, 2), std::string_view("1\0", 2));
    EXPECT_EQ(Part(image, 22, 2046, 2), std::string_view("2\0", 2));
    EXPECT_EQ(Part(image, 23, 0, 2048), std::string(2048, '3'));
    EXPECT_EQ(Part(image, 24, 0, 2049), std::string(2049, '4'));
    EXPECT_TRUE(IsZeros(Part(image, 25, 1, 2047)));
    EXPECT_EQ(Part(image, 26, 0, 1), "5");
    EXPECT_TRUE(IsZeros(image.substr(27 * kSector)));
}

TEST_F(LayoutTest, AtLeast150SectorsFollowTheData)
{
    AddFile("A", SectorsOfLetters(21)); // data up to 41: 42 + 150 = 192
    EXPECT_EQ(Plan().Sectors(), 192U);
    AddFile("B", "1");
    EXPECT_EQ(Plan().Sectors(), 224U);
}

TEST_F(LayoutTest, CountsFilesAndDirectoriesWithoutTheRoot)
{
    AddDirectory("A");
    AddDirectory("A/B");
    AddFile("A/B/F", "");

    EXPECT_EQ(Plan().Files(), 1U);
    EXPECT_EQ(Plan().Directories(), 2U);
}

TEST_F(LayoutTest, FilesFrom64KibibytesOnAreAligned)
{
    AddFile("A", std::string(65535, 'a')); // 32 sectors
    EXPECT_EQ(SectorInRecord(68), 21U);
    AddFile("B", std::string(65536, 'b'));
    EXPECT_EQ(SectorInRecord(68 + 38), 54U); // an even sector begins at a multiple of 4096

    const std::string image = Bytes();

    EXPECT_TRUE(IsZeros(Part(image, 53, 0, kSector))); // the gap
    EXPECT_EQ(Part(image, 54, 0, 65536), std::string(65536, 'b'));
}

TEST_F(LayoutTest, HardLinksShareTheirSectors)
{
    const std::string one = Write("top/ONE", "shared");
    ASSERT_EQ(::link(one.c_str(), (folder / "top/TWO").c_str()), 0);
    Write("top/ZED", "other");
    Scan(folder / "top");

    const std::string image = Bytes();

    EXPECT_EQ(SectorInRecord(68), 21U);
    EXPECT_EQ(SectorInRecord(68 + 40), 21U);
    EXPECT_EQ(SectorInRecord(68 + 80), 22U);
    EXPECT_EQ(Part(image, 21, 0, 6), "shared");
    EXPECT_EQ(Part(image, 22, 0, 5), "other");
    EXPECT_EQ(Plan().Files(), 3U);
}

TEST_F(LayoutTest, LinkSharesTheSectorsOfItsFileWhereThereAreNoLinks)
{
    Write("top/ONE", "shared");
    ASSERT_EQ(::symlink("ONE", (folder / "top/TWO").c_str()), 0);
    Scan(folder / "top");

    EXPECT_EQ(SectorInRecord(68), 21U);
    EXPECT_EQ(SectorInRecord(68 + 40), 21U);
}

TEST_F(LayoutTest, EqualFilesThatAreNotLinkedAreRecordedTwice)
{
    AddFile("ONE", "same");
    AddFile("TWO", "same");

    EXPECT_EQ(SectorInRecord(68), 21U);
    EXPECT_EQ(SectorInRecord(68 + 40), 22U);
}

TEST_F(LayoutTest, MoreLinksThanAnEntryCountsTakeASecondEntry)
{
    const std::string file = Write("shared", "text");
    for (int i = 0; i < 65537; ++i) {
        ASSERT_TRUE(tree->AddFile(std::to_string(i), file));
    }
    Choose(false, false, true);

    const std::string entries = Sectors(260, 2); // after file set, terminator and root

    EXPECT_EQ(Hex(entries.substr(48, 2)), "FF FF"); // ECMA-167 4/14.9.6: 16 bits
    EXPECT_EQ(Hex(entries.substr(kSector + 48, 2)), "02 00");
    EXPECT_EQ(Plan().Files(), 65537U);
}

TEST_F(LayoutTest, BridgeSharesTheDataOfAllTrees)
{
    AddFile("A", "first");
    AddFile("B", "second");
    Choose(true, true, true);

    const std::string image = Bytes();

    // Partition 257: file set, terminator, root, two files, root's identifiers; ISO 263 to 265,
    // Joliet 266 to 268, data from 269 on.
    EXPECT_EQ(Part(image, 269, 0, 5), "first");
    EXPECT_EQ(Part(image, 270, 0, 6), "second");
    EXPECT_EQ(NumberAt(image, 265 * kSector + 68 + 2, 4), 269U);
    EXPECT_EQ(NumberAt(image, 268 * kSector + 68 + 2, 4), 269U);
    EXPECT_EQ(NumberAt(image, 260 * kSector + 180, 4), 269U - 257U);
    EXPECT_EQ(image.find("second", 271 * kSector), std::string::npos);
}

TEST_F(LayoutTest, LastSectorOfAUdfImageIsAnAnchor)
{
    for (std::size_t sectors = 1; sectors < 34; ++sectors) { // over one unit of 32
        tree = std::make_shared<SourceTree>(kMoment);
        AddFile("A" + std::to_string(sectors), SectorsOfLetters(sectors));
        Choose(sectors % 2 == 0, false, true);
        const std::string image = Bytes();
        ASSERT_EQ(image.size() % (32 * kSector), 0U);
        const std::size_t last = image.size() / kSector - 1;
        EXPECT_EQ(HexOf(image, last, 0, 2), "02 00") << sectors;
        EXPECT_EQ(NumberAt(image, last * kSector + 12, 4), last) << sectors;
        EXPECT_TRUE(IsZeros(Part(image, last - 150, 0, 150 * kSector))) << sectors;
    }
}

TEST_F(LayoutTest, MetadataPartitionIsAMultipleOf32Blocks)
{
    for (int i = 10; i < 50; ++i) {
        AddDirectory(std::to_string(i)); // two blocks each
    }
    AddFile("FILE", "data");
    Choose(false, false, true);
    options.udfRevision = UdfRevision::Udf250;

    const std::string image = Bytes();

    // 2 + 41 + 1 entries, the root's identifiers in one block and a half, 40 more: 86 of 96 blocks.
    EXPECT_EQ(HexOf(image, 288, 56, 8), "00 00 03 00 00 00 00 00");
    EXPECT_EQ(HexOf(image, 34, 188, 4), "20 01 00 00"); // the partition begins at 288
    EXPECT_EQ(Part(image, 320 + 96, 0, 4), "data");
}

TEST_F(LayoutTest, BesideIsoThereIsNoMetadataPartition)
{
    AddFile("FILE", "data");
    for (const bool joliet : {false, true}) {
        Choose(true, joliet, true);
        options.udfRevision = UdfRevision::Udf102;
        const std::string image = Bytes();

        options.udfRevision = UdfRevision::Udf250;

        EXPECT_EQ(RevisionOf(options), UdfRevision::Udf102);
        EXPECT_EQ(Bytes(), image);
    }
}

TEST_F(LayoutTest, ImageUpToTheLimitIsPlanned)
{
    AddFile("A", "x");
    options.maxSectors = 192;
    EXPECT_EQ(Plan().Sectors(), 192U);

    options.maxSectors = 191;
    const Result<ImagePlan> plan = ImagePlan::Create(tree, options);
    ASSERT_FALSE(plan);
    EXPECT_EQ(plan.Failure().kind, ErrorKind::ImageTooLarge);
}

TEST_F(LayoutTest, ImageOf2To32SectorsIsTooLarge)
{
    constexpr off_t kHalf = off_t {1} << 42U; // 2^31 sectors
    for (const char* name : {"A", "B"}) {
        const std::string file = Write(name, "");
        if (::truncate(file.c_str(), kHalf) != 0) {
            GTEST_SKIP() << "the file system has no files of 4 TiB";
        }
        ASSERT_TRUE(tree->AddFile(name, file));
    }

    const Result<ImagePlan> plan = ImagePlan::Create(tree, options);

    ASSERT_FALSE(plan);
    EXPECT_EQ(plan.Failure().kind, ErrorKind::ImageTooLarge);
}

TEST_F(LayoutTest, JolietNeedsIsoAndSomethingMustBeChosen)
{
    for (const FileSystems chosen : {FileSystems {false, false, false},
             FileSystems {false, true, false},
             FileSystems {false, true, true}}) {
        options.fileSystems = chosen;
        const Result<ImagePlan> plan = ImagePlan::Create(tree, options);
        ASSERT_FALSE(plan);
        EXPECT_EQ(plan.Failure().kind, ErrorKind::NoFileSystem);
    }
}

TEST_F(LayoutTest, InvalidVolumeNameIsNotPlanned)
{
    for (const std::string& name : {std::string(), std::string(33, 'a'), std::string("a\nb")}) {
        options.volumeName = name;
        const Result<ImagePlan> plan = ImagePlan::Create(tree, options);
        ASSERT_FALSE(plan) << name;
        EXPECT_EQ(plan.Failure().kind, ErrorKind::InvalidVolumeName);
        EXPECT_EQ(plan.Failure().path, name);
    }
}

TEST_F(LayoutTest, APlanIsGivenUpOnRequest)
{
    AddFile("a", "x");
    std::stop_source stop;
    options.stop = stop.get_token();
    EXPECT_TRUE(ImagePlan::Create(tree, options));
    stop.request_stop();
    const Result<ImagePlan> plan = ImagePlan::Create(tree, options);
    ASSERT_FALSE(plan);
    EXPECT_EQ(plan.Failure().kind, ErrorKind::Cancelled);
}

} // namespace velmora::test
