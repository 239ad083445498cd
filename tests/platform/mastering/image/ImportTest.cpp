// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/mastering/DataBench.h"

#include "drive/PublishedCodes.h"
#include "tests/platform/mastering/ErrorNumbers.h"

namespace velmora::test {

using drive::DiscState;
using drive::IMAPI_MEDIA_PHYSICAL_TYPE;

namespace {

class ImportTest : public DataBench {
protected:
    /// A disc with two recordings, the last one at sector 12,000, and the rest free.
    void PutTwoSessions(qint32 profile = 9)
    {
        drive->disc = DiscOf(profile, DiscState::Appendable);
        drive->disc.sessions = {{0, 500}, {12'000, 800}};
        drive->disc.freeSectors = 340'000;
    }
    void PutOverwritable()
    {
        drive->disc = DiscOf(26, DiscState::Overwritable);
        drive->disc.totalSectors = 2'295'104;
        drive->disc.freeSectors = 2'295'104;
    }
    qint32 NumberOfSetting()
    {
        clock.Pause(2);
        return ErrorNumberOf(
            [&] { image->SetMultisessionInterfaces(writer->MultisessionInterfaces()); });
    }
    qint32 NumberOfImport()
    {
        return ErrorNumberOf([&] { image->ImportFileSystem(); });
    }

    imapi::FileSystemImageRef image = mastering->CreateFileSystemImage();
};

} // namespace

TEST_F(ImportTest, AnAppendableDiscLeavesItsFreeBlocks)
{
    PutTwoSessions();
    drive->sectors[12'016] = PrimaryDescriptor(800);
    ASSERT_EQ(NumberOfSetting(), 0);
    drive->Calls();

    EXPECT_EQ(NumberOfImport(), 0);
    EXPECT_EQ(drive->Calls(), "[Read 12016]");
    EXPECT_EQ(image->FreeMediaBlocks(), 340'000);
}

TEST_F(ImportTest, ThePrimaryDescriptorMayFollowOthers)
{
    PutTwoSessions();
    drive->sectors[12'016] = PrimaryDescriptor(0);
    drive->sectors[12'016][0] = std::byte {0}; // a boot record
    drive->sectors[12'017] = PrimaryDescriptor(800);
    NumberOfSetting();
    EXPECT_EQ(NumberOfImport(), 0);
}

TEST_F(ImportTest, UdfIsKnownByItsAnchor)
{
    PutTwoSessions(27);
    drive->sectors[12'256] = UdfDescriptor(2, {{16, 2 * 2048}, {20, 12'032}});
    drive->sectors[12'032] = UdfDescriptor(1, {});
    drive->sectors[12'033] = UdfDescriptor(5, {{188, 12'257}, {192, 500}});
    NumberOfSetting();
    EXPECT_EQ(NumberOfImport(), 0);
    EXPECT_EQ(image->FreeMediaBlocks(), 340'000);
}

TEST_F(ImportTest, AnOverwritableDiscLeavesWhatLiesBehindItsFileSystem)
{
    PutOverwritable();
    drive->sectors[16] = PrimaryDescriptor(2'000'000);
    ASSERT_EQ(NumberOfSetting(), 0);
    EXPECT_EQ(NumberOfImport(), 0);
    EXPECT_EQ(image->FreeMediaBlocks(), 295'104);
}

TEST_F(ImportTest, AnOverwritableDiscOfUdfLeavesWhatLiesBehindItsPartition)
{
    PutOverwritable();
    drive->sectors[256] = UdfDescriptor(2, {{16, 16 * 2048}, {20, 32}});
    drive->sectors[32] = UdfDescriptor(5, {{188, 257}, {192, 999'743}});
    NumberOfSetting();
    EXPECT_EQ(NumberOfImport(), 0);
    EXPECT_EQ(image->FreeMediaBlocks(), 1'295'104);
}

TEST_F(ImportTest, ADiscWithoutAKnownFileSystemIsRefused)
{
    PutTwoSessions();
    NumberOfSetting();
    EXPECT_EQ(NumberOfImport(), kNoFileSystem);
}

TEST_F(ImportTest, DescriptorsThatDoNotAddUpAreNoFileSystem)
{
    PutTwoSessions();
    drive->sectors[12'016] = PrimaryDescriptor(800);
    drive->sectors[12'016][3] = std::byte {'X'};
    drive->sectors[12'256] = UdfDescriptor(2, {{16, 2 * 2048}, {20, 12'032}});
    drive->sectors[12'256][4] = std::byte {77};
    NumberOfSetting();
    EXPECT_EQ(NumberOfImport(), kNoFileSystem);
}

TEST_F(ImportTest, AnAnchorToAVolumeWithoutAPartitionIsNoFileSystem)
{
    PutTwoSessions();
    drive->sectors[12'256] = UdfDescriptor(2, {{16, 16 * 2048}, {20, 12'032}});
    drive->sectors[12'032] = UdfDescriptor(8, {});
    drive->sectors[12'033] = UdfDescriptor(5, {{188, 12'257}, {192, 500}});
    NumberOfSetting();
    EXPECT_EQ(NumberOfImport(), kNoFileSystem);
}

TEST_F(ImportTest, APartitionThatEndsBeforeItsRecordingBeginsIsNoFileSystem)
{
    PutTwoSessions();
    drive->sectors[12'256] = UdfDescriptor(2, {{16, 16 * 2048}, {20, 12'032}});
    drive->sectors[12'032] = UdfDescriptor(5, {{188, 11'500}, {192, 500}});
    NumberOfSetting();
    EXPECT_EQ(NumberOfImport(), kNoFileSystem);
    drive->sectors[12'032] = UdfDescriptor(5, {{188, 11'500}, {192, 501}});
    EXPECT_EQ(NumberOfImport(), 0);
}

TEST_F(ImportTest, ARecordingIsNotReadBeyondItsEnd)
{
    PutTwoSessions();
    drive->disc.sessions = {{0, 16}};
    NumberOfSetting();
    drive->Calls();
    EXPECT_EQ(NumberOfImport(), kNoFileSystem);
    EXPECT_EQ(drive->Calls(), "");
}

TEST_F(ImportTest, ADiscThatCantBeReadSaysSo)
{
    PutTwoSessions();
    drive->Fail("Read 12016", {drive::hresult::kImportReadFailure});
    NumberOfSetting();
    EXPECT_EQ(NumberOfImport(), kReadFailure);
}

TEST_F(ImportTest, DiscsThatTakeNoFurtherRecordingAreRefused)
{
    struct Row {
        qint32 profile;
        DiscState state;
        qint32 number;
    };
    const std::array rows {
        Row {0, DiscState::None, kNoMultisession},
        Row {9, DiscState::Closed, kNoMultisession},
        Row {9, DiscState::Blank, kSeekFailure},
        Row {20, DiscState::Blank, kSeekFailure},
        Row {8, DiscState::Closed, kMediaNotAllowed},
        Row {65535, DiscState::Unsupported, kMediaNotAllowed},
        Row {9, DiscState::Unsupported, kMediaNotAllowed},
        Row {26, DiscState::Overwritable, 0},
        Row {9, DiscState::Appendable, 0},
    };
    for (const Row& row : rows) {
        drive->disc = DiscOf(row.profile, row.state);
        EXPECT_EQ(NumberOfSetting(), row.number)
            << row.profile << " " << static_cast<int>(row.state);
    }
}

TEST_F(ImportTest, AnOverwritableBlankIsAllowedAndHasNothingToImport)
{
    PutOverwritable();
    drive->disc.heuristicallyBlank = true;
    EXPECT_EQ(NumberOfSetting(), 0);
    EXPECT_EQ(NumberOfImport(), kEmptyDisc);
}

TEST_F(ImportTest, AnImportNeedsADisc)
{
    EXPECT_EQ(NumberOfImport(), kNotSet);
    EXPECT_EQ(ErrorNumberOf([&] { image->SetMultisessionInterfaces({}); }), kBadParameter);
    EXPECT_EQ(ErrorNumberOf([&] { image->SetMultisessionInterfaces({nullptr}); }), kBadParameter);
}

TEST_F(ImportTest, TheDiscLastQueriedGivesItsRoomUntilTheRecordersAreListedAnew)
{
    drive->disc.freeSectors = 359'846;
    writer->CurrentPhysicalMediaType();
    const auto blocksOf = [&] {
        const imapi::FileSystemImageRef next = mastering->CreateFileSystemImage();
        next->ChooseImageDefaultsForMediaType(IMAPI_MEDIA_PHYSICAL_TYPE::CdR);
        return next->FreeMediaBlocks();
    };
    EXPECT_EQ(blocksOf(), 359'846);
    mastering->CreateDiscMaster();
    EXPECT_EQ(blocksOf(), 404'850);
}

TEST_F(ImportTest, ADiscOfAnotherKindGivesNothing)
{
    writer->CurrentPhysicalMediaType();
    const imapi::FileSystemImageRef next = mastering->CreateFileSystemImage();
    next->ChooseImageDefaultsForMediaType(IMAPI_MEDIA_PHYSICAL_TYPE::CdRw);
    EXPECT_EQ(next->FreeMediaBlocks(), 404'850);
}

TEST_F(ImportTest, AnEmptiedTrayIsForgotten)
{
    writer->CurrentPhysicalMediaType();
    drive->disc = {};
    writer->IsCurrentMediaSupported(recorder);
    const imapi::FileSystemImageRef next = mastering->CreateFileSystemImage();
    next->ChooseImageDefaultsForMediaType(IMAPI_MEDIA_PHYSICAL_TYPE::CdR);
    EXPECT_EQ(next->FreeMediaBlocks(), 404'850);
}

TEST_F(ImportTest, TheDefaultsOfARecorderAreThoseOfItsDisc)
{
    drive->disc.freeSectors = 333'000;
    image->ChooseImageDefaults(recorder);
    EXPECT_EQ(image->FreeMediaBlocks(), 333'000);
    drive->disc = {};
    EXPECT_EQ(ErrorNumberOf([&] { image->ChooseImageDefaults(recorder); }), -1062600190);
}

} // namespace velmora::test
