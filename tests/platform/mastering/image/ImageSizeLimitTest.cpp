// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/mastering/ImageBench.h"

#include "tests/platform/mastering/ErrorNumbers.h"

namespace velmora::test {

namespace {

constexpr std::uintmax_t kSector = 2048;

} // namespace

/// An image for a disc of 10,000 sectors.
class ImageSizeLimitTest : public ImageBench {
protected:
    ImageSizeLimitTest()
    {
        const mastering::DiscFacts disc {drive::IMAPI_MEDIA_PHYSICAL_TYPE::CdR, 10'000};
        image = std::make_shared<mastering::FileSystemImage>(clock, disc);
        image->ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE::CdR);
    }

    qint32 AddFile(const text::DiscPath& name, std::uintmax_t sectors)
    {
        const auto file = folder.MakeFile(name.Text().toStdString(), sectors * kSector);
        return ErrorNumberOf([&] { image->Root()->AddFile(name, Open(file)); });
    }

    qint32 TryTree(const std::string& name)
    {
        return ErrorNumberOf([&] { AddTree(name); });
    }

    qint32 Finish()
    {
        return ErrorNumberOf([&] { image->CreateResultImage(); });
    }

    bool Holds(const text::DiscPath& directory)
    {
        return ErrorNumberOf([&] { image->Root()->Item(directory); }) == 0;
    }
};

TEST_F(ImageSizeLimitTest, AFileThatPassesTheLimitFailsTheWholeImage)
{
    EXPECT_EQ(AddFile(u"large"_disc, 10'001), 0);
    EXPECT_EQ(AddFile(u"fits"_disc, 1), 0);

    EXPECT_EQ(Finish(), kImageSizeLimit);
}

TEST_F(ImageSizeLimitTest, AnImageMayFillTheDiscToItsLastPacket)
{
    ASSERT_EQ(AddFile(u"first"_disc, 1), 0);
    mastering::FileSystemImage probe(clock);
    probe.Root()->AddFile(u"first"_disc, Open(folder / "first"));
    probe.Root()->AddFile(u"rest"_disc, Open(folder / "first"));
    const auto restSectors
        = static_cast<std::uintmax_t>(10'000 - probe.CreateResultImage()->TotalBlocks());

    // The probe's two names share one sector of data.
    EXPECT_EQ(AddFile(u"rest"_disc, restSectors), 0);
    const qint32 blocks = image->CreateResultImage()->TotalBlocks();
    EXPECT_LE(blocks, 10'000);
    EXPECT_GT(blocks, 10'000 - 32); // images come in packets of 32 sectors
}

TEST_F(ImageSizeLimitTest, ATreeThatPassesTheLimitFailsTheWholeImage)
{
    folder.MakeFile("small/a", 4'000 * kSector);
    folder.MakeFile("large/a", 4'000 * kSector);
    folder.MakeFile("large/b", 4'000 * kSector);

    EXPECT_EQ(TryTree("small"), 0);
    EXPECT_EQ(TryTree("large"), 0);

    EXPECT_TRUE(Holds(u"large"_disc));
    EXPECT_EQ(Finish(), kImageSizeLimit);
}

TEST_F(ImageSizeLimitTest, ManyFilesWhoseBytesWouldFitFailTheWholeImage)
{
    for (int i = 0; i < 10'000; ++i) {
        folder.MakeFile("tree/" + std::to_string(i), 1);
    }

    EXPECT_EQ(TryTree("tree"), 0);

    EXPECT_EQ(Finish(), kImageSizeLimit);
}

TEST_F(ImageSizeLimitTest, AnImageThatIsTooLargeStaysOpenForChanges)
{
    ASSERT_EQ(AddFile(u"large"_disc, 10'001), 0);
    ASSERT_EQ(Finish(), kImageSizeLimit);

    EXPECT_EQ(AddFile(u"more"_disc, 1), 0);
}

TEST_F(ImageSizeLimitTest, AMergeIsMeasuredByWhatIsLeftOfBothTrees)
{
    folder.MakeFile("one/Photos/a", 6'000 * kSector);
    folder.MakeFile("two/Photos/a", 7'000 * kSector);
    ASSERT_EQ(TryTree("one/Photos"), 0);

    EXPECT_EQ(TryTree("two/Photos"), 0);

    const qint32 blocks = image->CreateResultImage()->TotalBlocks();
    EXPECT_GT(blocks, 7'000);
    EXPECT_LT(blocks, 8'000);
}

TEST_F(ImageSizeLimitTest, HardLinksAreMeasuredOnce)
{
    const auto file = folder.MakeFile("tree/a", 6'000 * kSector);
    std::filesystem::create_hard_link(file, folder / "tree/b");

    EXPECT_EQ(TryTree("tree"), 0);
    EXPECT_EQ(image->CreateResultImage()->TotalBlocks() / 1'000, 6);
}

TEST_F(ImageSizeLimitTest, AMediumOfAnySizeHasNoLimit)
{
    image->ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE::Disk);

    EXPECT_EQ(image->FreeMediaBlocks(), 0);
    EXPECT_EQ(AddFile(u"large"_disc, 50'000'000), 0);
    EXPECT_GT(image->CreateResultImage()->TotalBlocks(), 50'000'000);
}

TEST_F(ImageSizeLimitTest, ALimitThatComesAfterTheFilesFailsTheResult)
{
    image->ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE::Disk);
    ASSERT_EQ(AddFile(u"large"_disc, 20'000), 0);
    image->ChooseImageDefaultsForMediaType(drive::IMAPI_MEDIA_PHYSICAL_TYPE::CdR);

    EXPECT_EQ(ErrorNumberOf([&] { image->CreateResultImage(); }), kImageSizeLimit);
    EXPECT_EQ(ErrorNumberOf([&] { image->Root()->Item(u"missing"_disc); }), kItemNotFound);
}

} // namespace velmora::test
