// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/mastering/DataBench.h"

#include "drive/PublishedCodes.h"
#include "tests/platform/mastering/ErrorNumbers.h"

#include <stdexcept>

namespace velmora::test {

using drive::DiscState;
using drive::WriteAction;
using drive::WriteProgress;
using imapi::IDiscFormat2DataEventArgs;
using DiscWriteTest = DataBench;

namespace {

WriteProgress Writing(qint64 written, qint64 count)
{
    return {.action = WriteAction::WritingData,
        .sectorCount = count,
        .lastReadSector = written,
        .lastWrittenSector = written};
}

} // namespace

TEST_F(DiscWriteTest, TheWholeStreamIsWrittenWhileTheDriveIsLocked)
{
    const imapi::StreamRef stream = Sectors(3);
    stream->Seek(5000); // wherever it stands
    writer->Write(stream);

    EXPECT_EQ(drive->Calls(), "[Lock(force)][Examine][Write][Unlock]");
    ASSERT_EQ(drive->written.size(), 3 * 2048U);
    EXPECT_EQ(drive->written[0], std::byte {0});
    EXPECT_EQ(drive->written[4097], std::byte {4097 % 251});
    EXPECT_EQ(drive->lastOrder.sectors, 3);
    EXPECT_EQ(drive->lastOrder.speed, 0xFFFFFFFF);
    EXPECT_FALSE(drive->lastOrder.closeDisc);
}

TEST_F(DiscWriteTest, ALockThatIsHeldServesTheWriteAndStays)
{
    recorder->AcquireExclusiveAccess(false, u"Tamsel"_s);
    writer->Write(Sectors(1));
    EXPECT_EQ(drive->Calls(), "[Lock][Examine][Write]");
    recorder->ReleaseExclusiveAccess();
    EXPECT_EQ(drive->Calls(), "[Unlock]");
}

TEST_F(DiscWriteTest, ADriveThatIsHeldByAnotherProgramIsNotWritten)
{
    drive->Fail("Lock(force)", {drive::hresult::kRecorderLocked});
    EXPECT_EQ(NumberOfWrite(Sectors(1)), kLocked);
    EXPECT_EQ(drive->Calls(), "[Lock(force)]");
    EXPECT_EQ(NumberOfWrite(Sectors(1)), 0);
}

TEST_F(DiscWriteTest, TheSpeedAskedForIsTheOneOrdered)
{
    writer->SetWriteSpeed(2500, false);
    writer->Write(Sectors(1));
    EXPECT_EQ(drive->lastOrder.speed, 2400U);
    writer->SetWriteSpeed(-1, false);
    writer->Write(Sectors(1));
    EXPECT_EQ(drive->lastOrder.speed, 0xFFFFFFFF);
}

TEST_F(DiscWriteTest, TheSpeedIsFittedToTheDiscThatIsWritten)
{
    writer->SetWriteSpeed(1200, false);
    drive->disc.writeSpeeds = {3600, 2400};
    writer->Write(Sectors(1));
    EXPECT_EQ(drive->lastOrder.speed, 2400U);
}

TEST_F(DiscWriteTest, ADiscIsClosedWhenThatIsWanted)
{
    writer->SetForceMediaToBeClosed(true);
    EXPECT_TRUE(writer->ForceMediaToBeClosed());
    writer->Write(Sectors(1));
    EXPECT_TRUE(drive->lastOrder.closeDisc);
}

TEST_F(DiscWriteTest, ADiscWithAFiftiethLeftIsClosedAnyway)
{
    drive->disc.totalSectors = 1000;
    drive->disc.freeSectors = 100;
    writer->Write(Sectors(79));
    EXPECT_FALSE(drive->lastOrder.closeDisc);
    writer->Write(Sectors(80));
    EXPECT_TRUE(drive->lastOrder.closeDisc);
}

TEST_F(DiscWriteTest, ADiscThatCantStayOpenIsClosed)
{
    drive->disc.canStayOpen = false;
    writer->Write(Sectors(1));
    EXPECT_TRUE(drive->lastOrder.closeDisc);
}

TEST_F(DiscWriteTest, AnOverwritableDiscIsNeverClosed)
{
    drive->disc = DiscOf(26, DiscState::Overwritable);
    drive->disc.heuristicallyBlank = true;
    writer->SetForceMediaToBeClosed(true);
    writer->Write(Sectors(1));
    EXPECT_FALSE(drive->lastOrder.closeDisc);
}

TEST_F(DiscWriteTest, AnEmptyStreamReferenceIsAnEmptyPointer)
{
    EXPECT_EQ(NumberOfWrite(nullptr), seen::kPointer);
}

TEST_F(DiscWriteTest, AStreamIsWholeSectors)
{
    for (const quint64 bytes : {0, 1, 2047, 2049}) {
        EXPECT_EQ(NumberOfWrite(std::make_shared<NumberedStream>(bytes)), kStreamNotSupported)
            << bytes;
    }
    EXPECT_EQ(drive->Calls(), "");
}

TEST_F(DiscWriteTest, AWriterWithoutANameDoesNotWrite)
{
    const imapi::DiscFormat2DataRef nameless = mastering->CreateDiscFormat2Data();
    nameless->SetRecorder(recorder);
    EXPECT_EQ(ErrorNumberOf([&] { nameless->Write(Sectors(1)); }), kClientNameNotValid);
}

TEST_F(DiscWriteTest, ADriveThatOnlyReadsDoesNotWrite)
{
    drive->facts.profiles = {8, 16};
    writer->SetRecorder(Bound());
    EXPECT_EQ(NumberOfWrite(Sectors(1)), kRecorderNotSupported);
}

TEST_F(DiscWriteTest, DiscsThatCantTakeTheStreamAreRefused)
{
    struct Row {
        qint32 profile;
        DiscState state;
        qint32 number;
    };
    const std::array rows {
        Row {0, DiscState::None, kNoMedia},
        Row {8, DiscState::Closed, kMediaNotSupported},
        Row {9, DiscState::Unsupported, kMediaNotSupported},
        Row {9, DiscState::Closed, kInvalidMediaState},
        Row {10, DiscState::Closed, kMediaNotBlank},
        Row {10, DiscState::Appendable, kMediaNotBlank},
        Row {20, DiscState::Appendable, kMediaNotBlank},
        Row {26, DiscState::Overwritable, kMediaNotBlank},
        Row {9, DiscState::Appendable, 0},
        Row {27, DiscState::Appendable, 0},
        Row {10, DiscState::Blank, 0},
    };
    for (const Row& row : rows) {
        drive->disc = DiscOf(row.profile, row.state);
        EXPECT_EQ(NumberOfWrite(Sectors(1)), row.number)
            << row.profile << " " << static_cast<int>(row.state);
        EXPECT_EQ(drive->Count("Write"), row.number == 0 ? 1 : 0) << row.profile;
        drive->Calls();
    }
}

TEST_F(DiscWriteTest, ARecordingThatWasCutIsNotFollowedByAnother)
{
    drive->disc = DiscOf(27, DiscState::Appendable);
    drive->disc.lastSessionOpen = true;
    EXPECT_EQ(NumberOfWrite(Sectors(1)), kInvalidMediaState);
    drive->disc.lastSessionOpen = false;
    drive->disc.damaged = true;
    EXPECT_EQ(NumberOfWrite(Sectors(1)), kInvalidMediaState);
    EXPECT_EQ(drive->Count("Write"), 0);
}

TEST_F(DiscWriteTest, AnOverwritableDiscIsOverwrittenOnlyByForce)
{
    drive->disc = DiscOf(26, DiscState::Overwritable);
    EXPECT_EQ(NumberOfWrite(Sectors(1)), kMediaNotBlank);
    writer->SetForceOverwrite(true);
    EXPECT_TRUE(writer->ForceOverwrite());
    EXPECT_EQ(NumberOfWrite(Sectors(1)), 0);
}

TEST_F(DiscWriteTest, AProtectedDiscIsRefused)
{
    drive->disc.writeProtected = true;
    EXPECT_EQ(NumberOfWrite(Sectors(1)), kWriteProtected);
}

TEST_F(DiscWriteTest, AStreamFitsUpToTheLastSector)
{
    drive->disc.freeSectors = 5;
    EXPECT_EQ(NumberOfWrite(Sectors(5)), 0);
    EXPECT_EQ(NumberOfWrite(Sectors(6)), kStreamTooLarge);
}

TEST_F(DiscWriteTest, AllOfAnOverwritableDiscIsRoom)
{
    drive->disc = DiscOf(26, DiscState::Overwritable);
    drive->disc.heuristicallyBlank = true;
    drive->disc.freeSectors = 0;
    drive->disc.totalSectors = 5;
    EXPECT_EQ(NumberOfWrite(Sectors(5)), 0);
    EXPECT_EQ(NumberOfWrite(Sectors(6)), kStreamTooLarge);
    EXPECT_EQ(writer->FreeSectorsOnMedia(), 5);
}

TEST_F(DiscWriteTest, AStreamThatEndsTooEarlyFailsTheWrite)
{
    const auto stream = std::make_shared<NumberedStream>(2048);
    stream->EndAt(2000);
    EXPECT_EQ(NumberOfWrite(stream), kStreamReadFault);
    EXPECT_EQ(drive->Calls(), "[Lock(force)][Examine][Write][Unlock]");
}

TEST_F(DiscWriteTest, WhatTheDriveSaysOfAFailureIsPassedOn)
{
    drive->Fail("Write", {drive::hresult::kWriteError, drive::hresult::kLossOfStreaming});
    EXPECT_EQ(NumberOfWrite(Sectors(1)), -1062599935);
    EXPECT_EQ(NumberOfWrite(Sectors(1)), -1062599936);
    EXPECT_EQ(NumberOfWrite(Sectors(1)), 0);
}

TEST_F(DiscWriteTest, EventsTellTheReportsOfTheDrive)
{
    drive->reports = {{.action = WriteAction::ValidatingMedia, .sectorCount = 4},
        {.action = WriteAction::WritingData,
            .startSector = 100,
            .sectorCount = 4,
            .lastReadSector = 103,
            .lastWrittenSector = 101,
            .bufferBytes = 1000,
            .bufferUsedBytes = 300},
        {.action = WriteAction::Completed, .sectorCount = 4}};
    std::vector<IDiscFormat2DataEventArgs> events;
    writer->OnUpdate([&](const IDiscFormat2DataEventArgs& event) { events.push_back(event); });
    writer->Write(Sectors(4));

    ASSERT_EQ(events.size(), 3U);
    EXPECT_EQ(events[0].CurrentAction, WriteAction::ValidatingMedia);
    EXPECT_EQ(events[1].CurrentAction, WriteAction::WritingData);
    EXPECT_EQ(events[1].StartLba, 100);
    EXPECT_EQ(events[1].SectorCount, 4);
    EXPECT_EQ(events[1].LastReadLba, 103);
    EXPECT_EQ(events[1].LastWrittenLba, 101);
    EXPECT_EQ(events[1].TotalSystemBuffer, 1000);
    EXPECT_EQ(events[1].UsedSystemBuffer, 300);
    EXPECT_EQ(events[1].FreeSystemBuffer, 700);
    EXPECT_EQ(events[2].CurrentAction, WriteAction::Completed);
}

TEST_F(DiscWriteTest, AStepIsToldOnceHoweverOftenTheDriveTellsOfIt)
{
    drive->reports = {{.action = WriteAction::CalibratingPower},
        {.action = WriteAction::CalibratingPower},
        Writing(0, 4),
        Writing(0, 4),
        {.action = WriteAction::CalibratingPower}};
    std::vector<WriteAction> actions;
    writer->OnUpdate(
        [&](const IDiscFormat2DataEventArgs& event) { actions.push_back(event.CurrentAction); });
    writer->Write(Sectors(4));
    writer->Write(Sectors(4));

    const std::vector<WriteAction> ofOneWrite {WriteAction::CalibratingPower,
        WriteAction::WritingData,
        WriteAction::WritingData,
        WriteAction::CalibratingPower};
    std::vector<WriteAction> expected = ofOneWrite;
    expected.insert(expected.end(), ofOneWrite.begin(), ofOneWrite.end());
    EXPECT_EQ(actions, expected);
}

TEST_F(DiscWriteTest, TimesAreToldOnceTheyCanBe)
{
    drive->reports = {Writing(0, 400), Writing(100, 400), Writing(200, 400)};
    std::vector<IDiscFormat2DataEventArgs> events;
    writer->OnUpdate([&](const IDiscFormat2DataEventArgs& event) {
        events.push_back(event);
        clock.Pause(10);
    });
    writer->Write(Sectors(1));

    ASSERT_EQ(events.size(), 3U);
    EXPECT_EQ(events[0].TotalTime, 0);
    EXPECT_EQ(events[1].ElapsedTime, 10);
    EXPECT_EQ(events[1].TotalTime, 40);
    EXPECT_EQ(events[1].RemainingTime, 30);
    EXPECT_EQ(events[2].ElapsedTime, 20);
    EXPECT_EQ(events[2].RemainingTime, 20);
}

TEST_F(DiscWriteTest, AnErrorThatLeavesTheHandlerIsDropped)
{
    drive->reports = {Writing(0, 1), Writing(1, 1)};
    int events = 0;
    writer->OnUpdate([&](const IDiscFormat2DataEventArgs&) {
        ++events;
        throw runtime::RuntimeError(11);
    });
    EXPECT_EQ(NumberOfWrite(Sectors(1)), 0);
    EXPECT_EQ(events, 2);
}

TEST_F(DiscWriteTest, ACancelInsideTheHandlerEndsTheWrite)
{
    drive->reports = {Writing(0, 1), Writing(1, 1), Writing(1, 1)};
    int events = 0;
    writer->OnUpdate([&](const IDiscFormat2DataEventArgs&) {
        if (++events == 2) {
            writer->CancelWrite();
        }
    });
    EXPECT_EQ(NumberOfWrite(Sectors(1)), kCancelled);
    EXPECT_EQ(events, 2);

    writer->OnUpdate({});
    EXPECT_EQ(NumberOfWrite(Sectors(1)), 0); // the next write is not cancelled
}

TEST_F(DiscWriteTest, ACancelWhileTheSessionEndsIsTooLateForTheDiscAndIsTold)
{
    drive->reports = {Writing(1, 1),
        {.action = WriteAction::Finalization},
        {.action = WriteAction::Finalization},
        {.action = WriteAction::Completed}};
    std::vector<WriteAction> actions;
    writer->OnUpdate([&](const IDiscFormat2DataEventArgs& event) {
        actions.push_back(event.CurrentAction);
        if (event.CurrentAction == WriteAction::Finalization) {
            writer->CancelWrite();
        }
    });

    EXPECT_EQ(NumberOfWrite(Sectors(1)), kCancelled);
    EXPECT_EQ(actions,
        (std::vector {
            WriteAction::WritingData, WriteAction::Finalization, WriteAction::Completed}));
    EXPECT_EQ(writer->Comparison().end, imapi::ComparisonEnd::Unwanted) << "the disc is written";
}

TEST_F(DiscWriteTest, AWriteCanBeCancelledWhileAStepTakesLong)
{
    drive->reports = {{.action = WriteAction::CalibratingPower},
        {.action = WriteAction::CalibratingPower},
        {.action = WriteAction::CalibratingPower}};
    int waits = 0;
    writer->OnWait([&] {
        ++waits;
        writer->CancelWrite();
    });
    EXPECT_EQ(NumberOfWrite(Sectors(1)), kCancelled);
    EXPECT_EQ(waits, 1);
}

TEST_F(DiscWriteTest, ACancelAnywhereElseIsRefused)
{
    EXPECT_EQ(ErrorNumberOf([&] { writer->CancelWrite(); }), kNotInProgress);

    qint32 betweenEvents = 0;
    drive->onCall = [&] { betweenEvents = ErrorNumberOf([&] { writer->CancelWrite(); }); };
    writer->Write(Sectors(1));
    EXPECT_EQ(betweenEvents, kNotInProgress);
}

TEST_F(DiscWriteTest, NothingCanBeChangedOrAskedWhileAWriteRuns)
{
    drive->reports = {Writing(0, 1)};
    std::vector<qint32> numbers;
    writer->OnUpdate([&](const IDiscFormat2DataEventArgs&) {
        numbers = {
            ErrorNumberOf([&] { writer->SetRecorder(recorder); }),
            ErrorNumberOf([&] { writer->SetClientName(u"x"_s); }),
            ErrorNumberOf([&] { writer->SetForceMediaToBeClosed(true); }),
            ErrorNumberOf([&] { writer->SetForceOverwrite(true); }),
            ErrorNumberOf([&] { writer->SetWriteSpeed(-1, false); }),
            ErrorNumberOf([&] { writer->CurrentMediaStatus(); }),
            ErrorNumberOf([&] { writer->IsCurrentMediaSupported(recorder); }),
            ErrorNumberOf([&] { writer->Write(Sectors(1)); }),
        };
    });
    writer->Write(Sectors(1));

    EXPECT_EQ(numbers, std::vector<qint32>(8, kWriteInProgress));
    EXPECT_EQ(ErrorNumberOf([&] { writer->SetClientName(u"x"_s); }), 0);
}

} // namespace velmora::test
