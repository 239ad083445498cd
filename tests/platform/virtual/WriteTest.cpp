// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

#include <QFileInfo>

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;
using drive::DiscState;
using drive::WriteAction;

using WriteTest = VirtualBench;

namespace {

struct Phases {
    std::vector<WriteAction> actions; // each change once
    drive::WriteProgress last;        // of the sectors
    bool operator()(const drive::WriteProgress& progress)
    {
        if (actions.empty() || actions.back() != progress.action) {
            actions.push_back(progress.action);
        }
        if (progress.action == WriteAction::WritingData) {
            EXPECT_GT(progress.sectorCount, 0);
            EXPECT_GE(progress.lastReadSector, progress.lastWrittenSector);
            last = progress;
        }
        return true;
    }
};

} // namespace

TEST_F(WriteTest, GoesThroughThePhasesOfADrive)
{
    Insert(u"dvd+r");
    Phases phases;
    drive.Write(Order(1000), std::ref(phases));
    EXPECT_EQ(phases.actions,
        (std::vector {WriteAction::ValidatingMedia,
            WriteAction::InitializingHardware,
            WriteAction::CalibratingPower,
            WriteAction::WritingData,
            WriteAction::Finalization,
            WriteAction::Completed}));
    EXPECT_EQ(phases.last.startSector, 0);
    EXPECT_EQ(phases.last.sectorCount, 1000);
    EXPECT_EQ(phases.last.lastWrittenSector, 1000);
}

TEST_F(WriteTest, FormatsWhatNeedsIt)
{
    const auto formats = [&] {
        Phases phases;
        drive.Write(Order(10), std::ref(phases));
        return phases.actions.at(1) == WriteAction::FormattingMedia;
    };
    Insert(u"dvd+rw");
    EXPECT_TRUE(formats());
    EXPECT_FALSE(formats()); // formatted now
    Insert(u"bd-re");
    EXPECT_TRUE(formats());
    Insert(u"dvd-rw-ow");
    EXPECT_TRUE(formats());
    EXPECT_TRUE(formats()); // at each write
    Insert(u"dvd-ram");
    EXPECT_FALSE(formats());
}

TEST_F(WriteTest, SessionsOfACdStandBehindTheirGaps)
{
    Insert(u"cd-r");
    ASSERT_EQ(Write(1000, false, 1), 0);
    EXPECT_EQ(drive.Examine().nextWritable, 1000 + 11'400);
    ASSERT_EQ(Write(2000, false, 2), 0);
    EXPECT_EQ(drive.Examine().nextWritable, 12'400 + 2000 + 6900);
    ASSERT_EQ(Write(100, true, 3), 0);
    const drive::DiscInfo info = drive.Examine();
    EXPECT_EQ(info.state, DiscState::Closed);
    ASSERT_EQ(info.sessions.size(), 3);
    EXPECT_EQ(info.sessions[1].firstSector, 12'400);
    EXPECT_EQ(info.sessions[2].firstSector, 21'300);
    EXPECT_EQ(info.sessions[2].sectors, 300); // a CD's track has no less
    EXPECT_EQ(ReadBack(0, 1000), Pattern(1000, 1));
    EXPECT_EQ(ReadBack(12'400, 2000), Pattern(2000, 2));
    EXPECT_EQ(ReadBack(21'300, 100), Pattern(100, 3));
    EXPECT_EQ(ReadBack(21'400, 200), std::vector<std::byte>(200 * kSector));
    EXPECT_EQ(ReadError(1000), Seen(drive::hresult::kImportReadFailure)); // the gap
    EXPECT_EQ(ReadError(999, 2), Seen(drive::hresult::kImportReadFailure));
}

TEST_F(WriteTest, SessionsOfADvdAndABdStandBehindTheirGaps)
{
    Insert(u"dvd+r");
    ASSERT_EQ(Write(1000), 0);
    EXPECT_EQ(drive.Examine().nextWritable, 1008 + 2048);
    Insert(u"bd-r");
    ASSERT_EQ(Write(1000), 0);
    EXPECT_EQ(drive.Examine().nextWritable, 1008);
    ASSERT_EQ(Write(16, false, 9), 0);
    EXPECT_EQ(ReadBack(1008, 16), Pattern(16, 9));
}

TEST_F(WriteTest, PadsAsDrivesDo)
{
    struct Row {
        QStringView key;
        bool closes;
        qint64 recorded; // of 1001 sectors
    };
    for (const Row& row : {Row {u"cd-r", false, 1001},
             Row {u"cd-rw", true, 1001},
             Row {u"dvd-r", true, 1001},
             Row {u"dvd-r", false, 1008},
             Row {u"dvd-rw", true, 1001},
             Row {u"dvd+r", true, 1008},
             Row {u"dvd+r-dl", false, 1008},
             Row {u"bd-r", true, 1008},
             Row {u"dvd-rw-ow", false, 1008},
             Row {u"dvd-ram", false, 1001},
             Row {u"dvd+rw", false, 1001},
             Row {u"bd-re", false, 1001}}) {
        Insert(row.key);
        ASSERT_EQ(Write(1001, row.closes), 0);
        EXPECT_EQ(Now().disc->sessions.first().sectors, row.recorded)
            << row.key.toString().toStdString();
        EXPECT_EQ(ReadBack(1001, row.recorded - 1001),
            std::vector<std::byte>(static_cast<std::size_t>((row.recorded - 1001) * kSector)));
    }
}

TEST_F(WriteTest, ADiscThatIsToBeClosedIsClosed)
{
    Insert(u"bd-r");
    ASSERT_EQ(Write(16, true), 0);
    EXPECT_EQ(drive.Examine().state, DiscState::Closed);
    EXPECT_FALSE(drive.Examine().canStayOpen);
    EXPECT_EQ(drive.Examine().totalSectors, 16);
    EXPECT_EQ(Write(16), Seen(drive::hresult::kInvalidMediaState));
}

TEST_F(WriteTest, ClosingMeansNothingOnAnOverwritableDisc)
{
    Insert(u"bd-re");
    ASSERT_EQ(Write(16, true), 0);
    EXPECT_EQ(drive.Examine().state, DiscState::Overwritable);
    EXPECT_EQ(Write(16), 0);
}

TEST_F(WriteTest, LittleRoomClosesTheDisc)
{
    // 2 % of 20,000 sectors are 400; the gap after the first session takes 11,400.
    constexpr qint64 kLargestOpen = 20'000 - 11'400 - 400 - 1;
    const auto write = [&](qint64 sectors) {
        Insert(u"cd-r");
        Change([](Description& now) { now.disc->capacity = 20'000; });
        drive.Write({.source = ZeroSource, .sectors = sectors}, {});
        return drive.Examine().state;
    };
    EXPECT_EQ(write(kLargestOpen), DiscState::Appendable);
    EXPECT_EQ(write(kLargestOpen + 1), DiscState::Closed);
    EXPECT_EQ(write(20'000), DiscState::Closed);
}

TEST_F(WriteTest, AnOverwritableDiscIsWrittenFromItsStart)
{
    Insert(u"dvd+rw");
    ASSERT_EQ(Write(500, false, 1), 0);
    ASSERT_EQ(Write(200, false, 2), 0);
    EXPECT_EQ(ReadBack(0, 200), Pattern(200, 2));
    const std::vector<std::byte> old = Pattern(500, 1);
    EXPECT_EQ(ReadBack(200, 300), std::vector(old.begin() + 200 * kSector, old.end()));
    EXPECT_TRUE(drive.Examine().sessions.isEmpty());
    EXPECT_EQ(drive.Examine().freeSectors, 2'295'104);
}

TEST_F(WriteTest, AnySessionDiscIsAPlainImage)
{
    Insert(u"dvd-r");
    ASSERT_EQ(Write(1000, true), 0);
    const Disc disc = *Now().disc;
    const QFileInfo file(
        QString::fromStdString(recorders.Folder(u"A"_s).SectorPath(disc.sectorFile)));
    EXPECT_EQ(file.size(), 1000 * kSector);
}

TEST_F(WriteTest, AStopLeavesADiscWhoseSessionIsOpen)
{
    Change([](Description& now) { now.drive.realTiming = true; });
    Insert(u"dvd+r");
    clock.Pause(10);
    const auto stopHalfway
        = [](const drive::WriteProgress& progress) { return progress.lastWrittenSector < 20'000; };
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Write(Order(40'000), stopHalfway); }),
        Seen(drive::hresult::kCancelled));
    const drive::DiscInfo info = drive.Examine();
    EXPECT_EQ(info.state, DiscState::Appendable);
    EXPECT_TRUE(info.damaged);
    EXPECT_TRUE(info.lastSessionOpen);
    EXPECT_TRUE(info.sessions.isEmpty());
    EXPECT_GE(info.nextWritable, 20'000);
    EXPECT_LT(info.nextWritable, 22'000);
    ASSERT_EQ(Write(100, false, 5), 0);
    EXPECT_FALSE(drive.Examine().damaged);
    EXPECT_EQ(ReadBack(info.nextWritable, 100), Pattern(100, 5));
}

// A killed write has put more sectors into the file than it recorded.
TEST_F(WriteTest, WhatAnInterruptedRecordingLeftIsNotBehindTheNext)
{
    Insert(u"dvd+r");
    ASSERT_EQ(Write(320), 0);
    const auto file = recorders.Folder(u"A"_s).SectorPath(Now().disc->sectorFile);
    std::ofstream(file, std::ios::app) << std::string(10'000 * kSector, 'x');

    ASSERT_EQ(Write(320, false, 5), 0);

    const drive::SessionFacts last = drive.Examine().sessions.back();
    EXPECT_EQ(ReadBack(last.firstSector, 320), Pattern(320, 5));
    EXPECT_EQ(static_cast<qint64>(std::filesystem::file_size(file)),
        (last.firstSector + last.sectors) * kSector);
}

TEST_F(WriteTest, AStopBeforeTheFirstSectorLeavesTheDiscBlank)
{
    Insert(u"cd-r");
    const auto stop = [](const drive::WriteProgress& progress) {
        return progress.action != WriteAction::CalibratingPower;
    };
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Write(Order(100), stop); }),
        Seen(drive::hresult::kCancelled));
    EXPECT_EQ(drive.Examine().state, DiscState::Blank);
}

TEST_F(WriteTest, AStopWhileTheSessionEndsComesTooLateForTheDisc)
{
    Insert(u"cd-r");
    const auto stop = [](const drive::WriteProgress& progress) {
        return progress.action != WriteAction::Finalization;
    };
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Write(Order(100), stop); }), 0);
    EXPECT_EQ(drive.Examine().state, DiscState::Appendable);
    EXPECT_EQ(ReadBack(0, 100), Pattern(100, 7));
}

TEST_F(WriteTest, WhatTheSourceRaisesComesThrough)
{
    Insert(u"dvd-r");
    drive::WriteOrder order = Order(1000);
    order.source = [taken = qint64 {0}](std::span<std::byte> out) mutable {
        taken += static_cast<qint64>(out.size());
        if (taken > 500 * kSector) {
            throw runtime::RuntimeError(4711);
        }
        ZeroSource(out);
    };
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Write(order, {}); }), 4711);
    const drive::DiscInfo info = drive.Examine();
    EXPECT_TRUE(info.damaged);
    EXPECT_GT(info.nextWritable, 0);
    EXPECT_LE(info.nextWritable, 512);
}

TEST_F(WriteTest, WhatTheReportRaisesComesThrough)
{
    Insert(u"dvd-r");
    const auto report = [](const drive::WriteProgress& progress) -> bool {
        if (progress.action == WriteAction::WritingData) {
            throw runtime::RuntimeError(4712);
        }
        return true;
    };
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Write(Order(1000), report); }), 4712);
    EXPECT_EQ(ExamineError(), 0);
}

TEST_F(WriteTest, NothingIsWrittenOfNothing)
{
    Insert(u"dvd-r");
    EXPECT_EQ(Write(0), 5);
    EXPECT_EQ(Write(-1), 5);
    EXPECT_EQ(drive.Examine().state, DiscState::Blank);
}

TEST_F(WriteTest, ThePumpMeetsABusyDrive)
{
    Insert(u"dvd-r");
    qint32 second = 0;
    qint32 look = 0;
    qint32 read = 0;
    pump.onPump = [&] {
        if (second == 0) {
            second = Write(10);
            look = ExamineError();
            read = ReadError(0);
        }
    };
    ASSERT_EQ(Write(1000), 0);
    EXPECT_EQ(second, Seen(drive::hresult::kMediaBusy));
    EXPECT_EQ(look, Seen(drive::hresult::kMediaBusy));
    EXPECT_EQ(read, Seen(drive::hresult::kMediaBusy));
    EXPECT_EQ(ReadBack(0, 1000), Pattern(1000, 7));
}

} // namespace velmora::virtualdrive::test
