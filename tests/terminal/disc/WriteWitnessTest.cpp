// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/WriteWitness.h"

#include "drive/PublishedCodes.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeDrive.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmora::terminal {

using namespace Qt::StringLiterals;
using drive::WriteAction;

namespace {

class WriteWitnessTest : public testing::Test {
protected:
    drive::DriveRef Open(const QString& id = u"a"_s) { return sources.front()->Open(id); }

    drive::WriteOrder Order(qint64 sectors)
    {
        drive::WriteOrder order;
        order.sectors = sectors;
        order.source = [](std::span<std::byte> out) { std::ranges::fill(out, std::byte {'x'}); };
        return order;
    }

    std::shared_ptr<test::FakeDriveSource> source = std::make_shared<test::FakeDriveSource>();
    std::shared_ptr<test::FakeDrive> drive = source->Plug(u"a"_s);
    WriteWitness witness;
    mastering::DriveSources sources = Witnessed({source}, witness);
};

} // namespace

TEST_F(WriteWitnessTest, EveryCallReachesTheDrive)
{
    std::vector<std::byte> sector(2048);
    const auto watched = Open();
    watched->Identify();
    watched->Examine();
    watched->Eject();
    watched->CloseTray();
    watched->Lock(true);
    watched->Unlock();
    watched->Read(5, sector);
    watched->Erase(true, {});
    EXPECT_EQ(drive->Calls(),
        "[Identify][Examine][Eject][CloseTray][Lock(force)][Unlock][Read 5][Erase(full)]");
}

TEST_F(WriteWitnessTest, ADriveThatIsNotThereStaysEmpty) { EXPECT_FALSE(Open(u"b"_s)); }

TEST_F(WriteWitnessTest, AWriteIsKeptWithItsSize)
{
    drive->reports = {
        {.action = WriteAction::WritingData, .startSector = 11'702, .lastWrittenSector = 11'705}};
    std::vector<WriteAction> told;
    witness.OnProgress([&](const drive::WriteProgress& p) { told.push_back(p.action); });
    Open()->Write(Order(3), [](const drive::WriteProgress&) { return true; });

    ASSERT_NE(witness.LastRecording(), nullptr);
    const WitnessedRecording& recording = *witness.LastRecording();
    EXPECT_EQ(recording.sectors, 3);
    EXPECT_EQ(recording.writtenSectors, 3);
    EXPECT_EQ(drive->written.size(), 3U * 2048);
    EXPECT_EQ(told, std::vector {WriteAction::WritingData});
}

TEST_F(WriteWitnessTest, AWriteThatFailsHasItsRecordingToo)
{
    drive->Fail("Write", {drive::hresult::kWriteError});
    EXPECT_EQ(test::ErrorNumberOf([&] { Open()->Write(Order(3), {}); }), -1062599935);
    ASSERT_NE(witness.LastRecording(), nullptr);
    EXPECT_EQ(witness.LastRecording()->writtenSectors, 0);
}

TEST_F(WriteWitnessTest, OfAWriteThatIsStoppedItIsKnownHowFarItCame)
{
    drive->reports = {{.action = WriteAction::WritingData, .lastWrittenSector = 2}};
    const auto stop = [](const drive::WriteProgress&) { return false; };
    EXPECT_EQ(test::ErrorNumberOf([&] { Open()->Write(Order(3), stop); }), -1062600702);
    EXPECT_EQ(witness.LastRecording()->writtenSectors, 2);
}

TEST_F(WriteWitnessTest, NoWriteNoRecording) { EXPECT_EQ(witness.LastRecording(), nullptr); }

TEST_F(WriteWitnessTest, AnEraseThatIsNotAllowedNeverReachesTheDrive)
{
    witness.AllowErase([] { return false; });
    EXPECT_EQ(test::ErrorNumberOf([&] { Open()->Erase(false, {}); }), -1062600702);
    EXPECT_EQ(drive->Calls(), "");
}

} // namespace velmora::terminal
