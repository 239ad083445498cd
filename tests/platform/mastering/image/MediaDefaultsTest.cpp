// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/MediaDefaults.h"

#include "tests/platform/mastering/ImageBench.h"
#include "tests/support/FakeDrive.h"
#include "tests/support/UnaskedMastering.h"

namespace velmora::test {

namespace {

using drive::IMAPI_MEDIA_PHYSICAL_TYPE;
using image::UdfRevision;

struct Row {
    int type;
    int fileSystems;
    UdfRevision udf;
    qint32 blocks;
};

constexpr std::array kRows {
    Row {1, 3, UdfRevision::Udf102, 404'850},
    Row {2, 3, UdfRevision::Udf102, 404'850},
    Row {3, 3, UdfRevision::Udf102, 404'850},
    Row {4, 7, UdfRevision::Udf102, 2'295'104},
    Row {5, 7, UdfRevision::Udf102, 2'236'704},
    Row {6, 7, UdfRevision::Udf102, 2'295'104},
    Row {7, 7, UdfRevision::Udf102, 2'295'104},
    Row {8, 7, UdfRevision::Udf102, 4'173'824},
    Row {9, 7, UdfRevision::Udf102, 2'298'496},
    Row {10, 7, UdfRevision::Udf102, 2'298'496},
    Row {11, 7, UdfRevision::Udf102, 4'171'712},
    Row {12, 4, UdfRevision::Udf250, 0},
    Row {13, 7, UdfRevision::Udf102, 4'173'824},
    Row {14, 4, UdfRevision::Udf250, 24'438'784},
    Row {15, 4, UdfRevision::Udf250, 24'438'784},
    Row {16, 4, UdfRevision::Udf250, 24'438'784},
    Row {17, 4, UdfRevision::Udf250, 24'438'784},
    Row {18, 4, UdfRevision::Udf250, 24'438'784},
    Row {19, 4, UdfRevision::Udf250, 24'438'784},
};

} // namespace

class MediaDefaultsTest : public ImageBench, public testing::WithParamInterface<Row> { };

TEST_P(MediaDefaultsTest, AKindOfDiscHasItsFileSystemsAndNominalSize)
{
    const auto type = static_cast<IMAPI_MEDIA_PHYSICAL_TYPE>(GetParam().type);

    const auto defaults = mastering::DefaultsFor(type);

    ASSERT_TRUE(defaults);
    EXPECT_EQ(static_cast<int>(defaults->fileSystems), GetParam().fileSystems);
    EXPECT_EQ(defaults->udfRevision, GetParam().udf);
    EXPECT_EQ(defaults->nominalBlocks, GetParam().blocks);
}

TEST_P(MediaDefaultsTest, TheImageTakesThem)
{
    image->ChooseImageDefaultsForMediaType(static_cast<IMAPI_MEDIA_PHYSICAL_TYPE>(GetParam().type));

    EXPECT_EQ(image->FreeMediaBlocks(), GetParam().blocks);
    image->Root()->AddDirectory(u"A"_disc);
    const std::string bytes = BytesOf(*image->CreateResultImage());
    EXPECT_EQ(bytes.find("CD001") != std::string::npos, (GetParam().fileSystems & 1) != 0);
    EXPECT_EQ(bytes.find("%/E") != std::string::npos, (GetParam().fileSystems & 2) != 0);
    EXPECT_EQ(bytes.find("NSR0") != std::string::npos, (GetParam().fileSystems & 4) != 0);
    EXPECT_EQ(bytes.find("NSR03") != std::string::npos, GetParam().udf == UdfRevision::Udf250);
}

INSTANTIATE_TEST_SUITE_P(
    Types, MediaDefaultsTest, testing::ValuesIn(kRows), [](const testing::TestParamInfo<Row>& row) {
        return "Type" + std::to_string(row.param.type);
    });

class UnknownMediaTest : public ImageBench, public testing::WithParamInterface<int> { };

TEST_P(UnknownMediaTest, ANumberThatNamesNoDiscIsRefused)
{
    const auto type = static_cast<IMAPI_MEDIA_PHYSICAL_TYPE>(GetParam());

    EXPECT_EQ(ErrorNumberOf([&] { image->ChooseImageDefaultsForMediaType(type); }), -1062555391);
    EXPECT_EQ(image->FreeMediaBlocks(), 332'800);
}

INSTANTIATE_TEST_SUITE_P(Numbers, UnknownMediaTest, testing::Values(-1, 0, 20, 65535));

namespace {

/// A recorder that is bound to the drive of a test.
class RecorderOf final : public UnaskedRecorder {
public:
    RecorderOf(drive::DriveRef drive, const runtime::Clock& clock)
        : drive_(std::move(drive), clock)
    {
    }
    drive::BoundDrive& Drive() override { return drive_; }

private:
    drive::BoundDrive drive_;
};

} // namespace

using FileSystemImageTest = ImageBench;

class ImageForADriveTest : public ImageBench {
protected:
    qint32 Choose()
    {
        const auto recorder = std::make_shared<RecorderOf>(drive, clock);
        return ErrorNumberOf([&] { image->ChooseImageDefaults(recorder); });
    }

    std::shared_ptr<FakeDrive> drive = std::make_shared<FakeDrive>(u"sr0"_s);
};

TEST_F(ImageForADriveTest, ABlankDiscGivesItsRealSize)
{
    drive->disc = DiscOf(10, drive::DiscState::Blank);

    EXPECT_EQ(Choose(), 0);
    EXPECT_EQ(image->FreeMediaBlocks(), 359'847);
}

TEST_F(ImageForADriveTest, ADiscThatIsPartlyFullGivesWhatIsLeft)
{
    drive->disc = DiscOf(9, drive::DiscState::Appendable);
    drive->disc.freeSectors = 1234;

    EXPECT_EQ(Choose(), 0);
    EXPECT_EQ(image->FreeMediaBlocks(), 1234);
}

TEST_F(ImageForADriveTest, AnEmptyTraySaysSo) { EXPECT_EQ(Choose(), -1062600190); }

TEST_F(ImageForADriveTest, AnUnknownDiscIsRefused)
{
    drive->disc = DiscOf(0x7777, drive::DiscState::Blank);

    EXPECT_EQ(Choose(), -1062600189);
}

TEST_F(FileSystemImageTest, NoRecorderIsAnEmptyPointer)
{
    EXPECT_EQ(ErrorNumberOf([&] { image->ChooseImageDefaults(nullptr); }), -2147467261);
}

TEST_F(FileSystemImageTest, TheDiscLastQueriedGivesItsSizeToItsOwnKindOnly)
{
    const mastering::DiscFacts disc {IMAPI_MEDIA_PHYSICAL_TYPE::CdR, 333'000};
    mastering::FileSystemImage known(clock, disc);

    known.ChooseImageDefaultsForMediaType(IMAPI_MEDIA_PHYSICAL_TYPE::CdR);
    EXPECT_EQ(known.FreeMediaBlocks(), 333'000);

    known.ChooseImageDefaultsForMediaType(IMAPI_MEDIA_PHYSICAL_TYPE::CdRw);
    EXPECT_EQ(known.FreeMediaBlocks(), 404'850);
}

} // namespace velmora::test
