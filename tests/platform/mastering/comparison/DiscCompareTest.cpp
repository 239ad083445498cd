// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drive/PublishedCodes.h"
#include "tests/platform/mastering/CompareBench.h"
#include "tests/platform/mastering/ErrorNumbers.h"
#include "tests/support/PathLiterals.h"

#include <QCryptographicHash>

namespace velmora::test {

using namespace path_literals;
using drive::WriteAction;
using imapi::ComparisonEnd;
using imapi::DiscComparison;
using imapi::HurtFile;
using imapi::HurtPlace;
using imapi::IDiscFormat2DataEventArgs;
using DiscCompareTest = CompareBench;

TEST_F(DiscCompareTest, ADiscThatGivesBackWhatWasWrittenIsTheSame)
{
    const DiscComparison& comparison = Compare(3 * kPiece + 7);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(comparison.end, ComparisonEnd::Same);
    EXPECT_EQ(comparison.sectors, 3 * kPiece + 7);
    EXPECT_EQ(comparison.sameSectors, 3 * kPiece + 7);
    EXPECT_EQ(comparison.sha256,
        QCryptographicHash::hash(QByteArray(reinterpret_cast<const char*>(drive->written.data()),
                                     static_cast<qsizetype>(drive->written.size())),
            QCryptographicHash::Sha256));
    EXPECT_EQ(drive->Calls(),
        "[Lock(force)][Examine][Write][Examine][Read 1000][Read 1256][Read 1768][Unlock]");
}

TEST_F(DiscCompareTest, TheComparisonIsTheDefault)
{
    mastering = mastering::MasteringOf({source}, clock);
    writer = mastering->CreateDiscFormat2Data();
    writer->SetClientName(u"Tamsel"_s);
    writer->SetRecorder(Bound());
    writer->Write(Sectors(1));
    EXPECT_EQ(writer->Comparison().end, ComparisonEnd::Same);
}

TEST_F(DiscCompareTest, WhereNobodyWantsItNothingIsRead)
{
    comparesAfterWrite = false;
    EXPECT_EQ(Compare(1).end, ComparisonEnd::Unwanted);
    EXPECT_EQ(drive->Calls(), "[Lock(force)][Examine][Write][Unlock]");
}

TEST_F(DiscCompareTest, AWriteThatFailsIsNotCompared)
{
    Compare(1);
    drive->Calls();
    drive->Fail("Write", {drive::hresult::kWriteError});
    EXPECT_EQ(Compare(1).end, ComparisonEnd::NotBegun);
    EXPECT_EQ(drive->Calls(), "[Lock(force)][Examine][Write][Unlock]");
    EXPECT_EQ(NumberOfWrite(nullptr), seen::kPointer);
    EXPECT_EQ(writer->Comparison().end, ComparisonEnd::NotBegun);
}

TEST_F(DiscCompareTest, OneBitIsFoundWithItsSectorAndItsFile)
{
    const DiscComparison& comparison = Compare(3 * kPiece, [this] { Flip(kPiece + 3, 77); });
    EXPECT_EQ(number, kVerificationFailed);
    EXPECT_EQ(comparison.end, ComparisonEnd::Hurt);
    EXPECT_EQ(comparison.places, (std::vector<HurtPlace> {{kFirst + 515, kFirst + 515, false}}));
    EXPECT_EQ(comparison.sameSectors, 515);
    EXPECT_EQ(comparison.hurtFiles, (std::vector<HurtFile> {{u"51"_disc, 5 * 2048 + 77}}));
    EXPECT_EQ(comparison.hurtFileCount, 1U);
    EXPECT_TRUE(comparison.sha256.isEmpty());
    EXPECT_EQ(drive->Count("Unlock"), 1);
}

TEST_F(DiscCompareTest, TheFirstAndTheLastByteCount)
{
    EXPECT_EQ(Compare(kPiece + 1, [this] { Flip(0, 0); }).hurtFiles.front().firstByte, 0U);
    EXPECT_EQ(Compare(kPiece + 1, [this] { Flip(kPiece, 2047); }).places.front().firstSector,
        kFirst + kPiece);
}

TEST_F(DiscCompareTest, BytesBehindAFilesEndHurtNoFile)
{
    const DiscComparison& comparison = Compare(20, [this] { Flip(9, 2047); });
    EXPECT_EQ(comparison.end, ComparisonEnd::Hurt);
    EXPECT_EQ(comparison.hurtFileCount, 0U);
}

TEST_F(DiscCompareTest, AllHurtFilesAreCountedAndTwentyAreNamed)
{
    const DiscComparison& comparison = Compare(kPiece, [this] {
        for (qint64 sector = 0; sector < 260; ++sector) {
            Flip(sector, 5);
        }
    });
    EXPECT_EQ(comparison.places, (std::vector<HurtPlace> {{kFirst, kFirst + 259, false}}));
    EXPECT_EQ(comparison.hurtFiles.size(), DiscComparison::kMostNamed);
    EXPECT_EQ(comparison.hurtFileCount, 26U);
    EXPECT_EQ(comparison.hurtFiles.back(), (HurtFile {u"19"_disc, 5}));
}

TEST_F(DiscCompareTest, AnUnreadableSectorIsToldWithItsFile)
{
    drive->unreadable = {kFirst + 700};
    const DiscComparison& comparison = Compare(3 * kPiece);
    EXPECT_EQ(number, kVerificationFailed);
    EXPECT_EQ(comparison.places, (std::vector<HurtPlace> {{kFirst + 700, kFirst + 700, true}}));
    EXPECT_EQ(comparison.hurtFiles, (std::vector<HurtFile> {{u"70"_disc, 0}}));
    EXPECT_EQ(drive->Count("Eject"), 0) << "the disc is known to be there";
}

TEST_F(DiscCompareTest, WhereReadsFailSlowlyBlocksAreEnough)
{
    drive->unreadable = {kFirst + 300};
    drive->onCall = [this] { clock.Pause(2); };
    EXPECT_EQ(
        Compare(kPiece).places, (std::vector<HurtPlace> {{kFirst + 288, kFirst + 319, true}}));
}

TEST_F(DiscCompareTest, PlacesOfBothKindsComeInTheirOrder)
{
    drive->unreadable = {kFirst + 310, kFirst + 311};
    const DiscComparison& comparison = Compare(kPiece, [this] {
        Flip(305, 1);
        Flip(320, 1);
    });
    EXPECT_EQ(comparison.places,
        (std::vector<HurtPlace> {{kFirst + 305, kFirst + 305, false},
            {kFirst + 310, kFirst + 311, true},
            {kFirst + 320, kFirst + 320, false}}));
    EXPECT_EQ(comparison.hurtFileCount, 3U);
}

TEST_F(DiscCompareTest, ASectorThatIsReadAtTheSecondTryIsGood)
{
    drive->Fail("Read 1256", {drive::hresult::kImportReadFailure});
    EXPECT_EQ(Compare(2 * kPiece).end, ComparisonEnd::Same);
}

TEST_F(DiscCompareTest, WhereTheSourceHasChangedTheWholePieceIsHurt)
{
    const auto stream = std::make_shared<NumberedStream>(2 * kPiece * 2048);
    writer->OnUpdate([&](const IDiscFormat2DataEventArgs&) {
        stream->EndAt(1);
        Flip(kPiece + 9, 0);
        writer->OnUpdate({});
    });
    EXPECT_EQ(NumberOfWrite(stream), kVerificationFailed);
    EXPECT_EQ(
        writer->Comparison().places, (std::vector<HurtPlace> {{kPiece, 2 * kPiece - 1, false}}));
}

TEST_F(DiscCompareTest, ADiscThatIsHurtAllOverIsNotReadToItsEnd)
{
    constexpr qint64 kPieces = 70;
    const DiscComparison& comparison = Compare(kPieces * kPiece, [this] {
        for (qint64 piece = 0; piece < kPieces; ++piece) {
            Flip(piece * kPiece, 0);
        }
    });
    EXPECT_EQ(comparison.end, ComparisonEnd::Hurt);
    EXPECT_TRUE(comparison.isCutShort);
    EXPECT_EQ(comparison.places.size(), 64U);
}

TEST_F(DiscCompareTest, ReadsThatCostTooMuchTimeEndTheComparison)
{
    for (qint64 sector = 600; sector < 20'000; sector += 32) {
        drive->unreadable.insert(kFirst + sector);
    }
    drive->onCall = [this] { clock.Pause(5); };
    const DiscComparison& comparison = Compare(20'000);
    EXPECT_EQ(comparison.end, ComparisonEnd::Hurt);
    EXPECT_TRUE(comparison.isCutShort);
    EXPECT_LT(clock.Timer(), 2000);
}

TEST_F(DiscCompareTest, SectorsThatWereNeverWrittenAreHurtHoweverManyTheyAre)
{
    const DiscComparison& comparison = Compare(3 * kPiece,
        [this] { std::ranges::fill(std::span(drive->written).subspan(2048), std::byte {0}); });
    EXPECT_EQ(comparison.end, ComparisonEnd::Hurt);
    EXPECT_EQ(
        comparison.places, (std::vector<HurtPlace> {{kFirst + 1, kFirst + 3 * kPiece - 1, false}}));
}

TEST_F(DiscCompareTest, EventsTellHowFarItIs)
{
    drive->reports
        = {{.action = WriteAction::WritingData, .startSector = kFirst, .sectorCount = 3000}};
    std::vector<IDiscFormat2DataEventArgs> events;
    writer->OnUpdate([&](const IDiscFormat2DataEventArgs& event) {
        if (event.CurrentAction == WriteAction::Verifying) {
            events.push_back(event);
        }
    });
    drive->onCall = [this] { clock.Pause(0.04); };
    writer->Write(Sectors(3000));

    ASSERT_GE(events.size(), 3U);
    EXPECT_EQ(events.front().StartLba, kFirst);
    EXPECT_EQ(events.front().SectorCount, 3000);
    EXPECT_EQ(events.front().LastReadLba, kFirst);
    for (std::size_t i = 1; i < events.size(); ++i) {
        EXPECT_GT(events[i].LastReadLba, events[i - 1].LastReadLba);
    }
    EXPECT_EQ(events.back().LastReadLba, kFirst + 3000);
}

TEST_F(DiscCompareTest, TheEndIsToldHoweverSoonItComes)
{
    drive->reports
        = {{.action = WriteAction::WritingData, .startSector = kFirst, .sectorCount = 3000}};
    std::vector<qint32> read;
    writer->OnUpdate([&](const IDiscFormat2DataEventArgs& event) {
        if (event.CurrentAction == WriteAction::Verifying) {
            read.push_back(event.LastReadLba);
        }
    });
    writer->Write(Sectors(3000)); // the clock stands still
    EXPECT_EQ(read, (std::vector<qint32> {kFirst, kFirst + 3000}));
}

TEST_F(DiscCompareTest, AStopEndsTheComparisonAndLeavesAGoodDisc)
{
    int waits = 0;
    writer->OnWait([&] {
        if (++waits == 8) {
            writer->CancelWrite();
        }
    });
    const DiscComparison& comparison = Compare(20 * kPiece);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(comparison.end, ComparisonEnd::Stopped);
    EXPECT_GT(comparison.sameSectors, 0);
    EXPECT_LT(comparison.sameSectors, 20 * kPiece);
    EXPECT_TRUE(comparison.sha256.isEmpty());
}

TEST_F(DiscCompareTest, AStopIsHeardWhileTheDriveGetsReady)
{
    drive->Fail("Examine", {0});
    for (int i = 0; i < 61; ++i) {
        drive->Fail("Examine", {drive::hresult::kBecomingReady});
    }
    const DiscComparison& comparison = Compare(1, [this] { writer->CancelWrite(); });
    EXPECT_EQ(comparison.end, ComparisonEnd::Stopped);
    EXPECT_LE(clock.Timer(), 1);
}

TEST_F(DiscCompareTest, AStopThatCameTooLateForTheWriteStillCounts)
{
    drive->reports = {{.action = WriteAction::Completed}};
    writer->OnUpdate([this](const IDiscFormat2DataEventArgs&) { writer->CancelWrite(); });
    EXPECT_EQ(NumberOfWrite(Sectors(1)), 0);
    EXPECT_EQ(writer->Comparison().end, ComparisonEnd::Stopped);
}

TEST_F(DiscCompareTest, ASlowDriveIsReadInSmallSteps)
{
    double longest = 0;
    double last = 0;
    writer->OnWait([&] { last = clock.Timer(); });
    writer->OnUpdate([&](const IDiscFormat2DataEventArgs&) {
        longest = std::max(longest, clock.Timer() - last);
        last = clock.Timer();
    });
    drive->onRead = [this](qint64 sectors) {
        clock.Pause(static_cast<double>(sectors) / 300); // a CD at four times
    };
    writer->Write(Sectors(3000));
    EXPECT_LT(longest, 1);
}

TEST_F(DiscCompareTest, NothingCanBeAskedMeanwhile)
{
    qint32 asked = 0;
    Compare(1, [&] { asked = ErrorNumberOf([&] { writer->Write(Sectors(1)); }); });
    EXPECT_EQ(asked, kWriteInProgress);
}

} // namespace velmora::test
