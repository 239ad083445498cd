// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/DiscComparison.h"

#include "drive/PublishedCodes.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeDrive.h"
#include "tests/support/QtPrinters.h"
#include "tests/terminal/TranscriptScreen.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kPieceSectors = PieceDigests::kPieceBytes / 2048;
constexpr qint64 kFirst = 500;

class DiscComparisonTest : public testing::Test {
protected:
    /// The drive gives zeros, but for the sectors that a test puts there.
    void Write(qint64 sectors)
    {
        recording.drive = drive;
        recording.firstSector = kFirst;
        recording.sectors = sectors;
        recording.isWritten = true;
        const std::vector<std::byte> zeros(2048);
        for (qint64 done = 0; done < sectors; ++done) {
            recording.digests.Add(zeros);
        }
    }

    Comparison Compare()
    {
        progress.Begin("Comparaison");
        return CompareWithDisc(recording,
            {.progress = progress, .pump = pump, .stopRequested = [this] { return isStopped; }});
    }

    std::shared_ptr<test::FakeDrive> drive = std::make_shared<test::FakeDrive>(u"a"_s);
    test::FakePump pump;
    TranscriptScreen screen;
    ProgressLine progress {screen, std::chrono::steady_clock::now};
    WitnessedRecording recording;
    bool isStopped = false;
};

} // namespace

TEST_F(DiscComparisonTest, ADiscThatGivesBackWhatWasWrittenIsTheSame)
{
    Write(kPieceSectors + 1);
    const Comparison comparison = Compare();
    EXPECT_EQ(comparison.end, ComparisonEnd::Same);
    EXPECT_EQ(comparison.sameSectors, kPieceSectors + 1);
    EXPECT_EQ(comparison.digest, recording.digests.Digest());
    EXPECT_EQ(drive->Calls(),
        "[Lock(force)][Read 500][Read 2548][Read 4596][Read 6644][Read 8692][Unlock]");
    EXPECT_EQ(pump.pumps, 5);
}

TEST_F(DiscComparisonTest, OneBitThatDiffersIsFoundWithItsPlace)
{
    Write(3 * kPieceSectors);
    drive->sectors[kFirst + kPieceSectors + 2048] = std::vector(2048, std::byte {1});
    const Comparison comparison = Compare();
    EXPECT_EQ(comparison.end, ComparisonEnd::Different);
    EXPECT_EQ(comparison.sameSectors, kPieceSectors);
    EXPECT_EQ(comparison.firstSector, kFirst + kPieceSectors);
    EXPECT_EQ(comparison.lastSector, kFirst + 2 * kPieceSectors - 1);
}

TEST_F(DiscComparisonTest, TheLastSectorCounts)
{
    Write(kPieceSectors + 2048);
    drive->sectors[kFirst + kPieceSectors] = std::vector(2048, std::byte {1});
    const Comparison comparison = Compare();
    EXPECT_EQ(comparison.end, ComparisonEnd::Different);
    EXPECT_EQ(comparison.sameSectors, kPieceSectors);
    EXPECT_EQ(comparison.lastSector, kFirst + kPieceSectors + 2047);
}

TEST_F(DiscComparisonTest, ARecordingOfWhichTheDigestsKnowLessIsNotTheSame)
{
    Write(100);
    recording.sectors = 200;
    EXPECT_EQ(Compare().end, ComparisonEnd::Different);
}

TEST_F(DiscComparisonTest, AnUnreadableDiscSaysWhereAndWhy)
{
    Write(5000);
    drive->Fail("Read 2548", {drive::hresult::kImportReadFailure});
    const Comparison comparison = Compare();
    EXPECT_EQ(comparison.end, ComparisonEnd::Unreadable);
    EXPECT_EQ(comparison.sameSectors, 0);
    EXPECT_EQ(comparison.firstSector, kFirst + 2048);
    EXPECT_EQ(comparison.lastSector, kFirst + 4095);
    EXPECT_EQ(
        comparison.failure, u"Lecture du disque impossible : nettoyez-le ou changez de disque."_s);
    EXPECT_EQ(drive->Calls(), "[Lock(force)][Read 500][Read 2548][Unlock]");
}

TEST_F(DiscComparisonTest, AStopTellsHowMuchWasTheSame)
{
    Write(2 * kPieceSectors);
    pump.onPump = [this] { isStopped = pump.pumps == 5; };
    const Comparison comparison = Compare();
    EXPECT_EQ(comparison.end, ComparisonEnd::Stopped);
    EXPECT_EQ(comparison.sameSectors, kPieceSectors); // the piece that was begun isn't known
}

TEST_F(DiscComparisonTest, ADriveThatIsInUseIsNotRead)
{
    Write(1);
    drive->Fail("Lock(force)", {drive::hresult::kRecorderLocked});
    EXPECT_EQ(test::ErrorNumberOf([this] { Compare(); }), drive::hresult::kRecorderLocked);
    EXPECT_EQ(drive->Calls(), "[Lock(force)]");
}

} // namespace velmora::terminal
