// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

#include "drive/PublishedCodes.h"

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;
using drive::DiscState;

namespace {

struct FaultRow {
    const char* name;
    FaultKind kind;
    qint32 code;
};

std::ostream& operator<<(std::ostream& out, const FaultRow& row) { return out << row.name; }

class WriteFaultTest : public VirtualBench, public testing::WithParamInterface<FaultRow> {
protected:
    void PutRight()
    {
        recorders.SetPlugged(u"A"_s, true);
        recorders.Close(u"A"_s, clock);
    }
};

} // namespace

TEST_P(WriteFaultTest, StrikesAtItsSector)
{
    for (const qint64 sector : {0, 1, 500, 999}) {
        Insert(u"dvd+r");
        recorders.Plan(u"A"_s, {.kind = GetParam().kind, .sector = sector});
        EXPECT_EQ(Write(1000), Seen(GetParam().code));
        PutRight();
        const drive::DiscInfo info = drive.Examine();
        EXPECT_EQ(info.nextWritable, (sector + 15) / 16 * 16);
        EXPECT_EQ(info.damaged, sector > 0);
        EXPECT_EQ(info.state, sector > 0 ? DiscState::Appendable : DiscState::Blank);
        if (sector > 0) {
            EXPECT_EQ(ReadBack(0, sector), Pattern(sector, 7));
        }
    }
}

TEST_P(WriteFaultTest, StrikesOnceUnlessItLasts)
{
    Insert(u"dvd-ram");
    recorders.Plan(u"A"_s, {.kind = GetParam().kind, .sector = 10});
    EXPECT_EQ(Write(20), Seen(GetParam().code));
    PutRight();
    EXPECT_EQ(Write(20), 0);
    recorders.Plan(u"A"_s, {.kind = GetParam().kind, .sector = 10, .lasting = true});
    for (int time = 0; time < 3; ++time) {
        EXPECT_EQ(Write(20), Seen(GetParam().code));
        PutRight();
    }
    EXPECT_EQ(Write(10), 0); // ends before it
    recorders.ClearFaults(u"A"_s);
    EXPECT_EQ(Write(20), 0);
}

TEST_P(WriteFaultTest, CanBePlannedWhileTheDiscIsWritten)
{
    Change([](Description& now) { now.drive.realTiming = true; });
    Insert(u"dvd+r");
    clock.Pause(10);
    const auto planLater = [&](const drive::WriteProgress& progress) {
        if (progress.lastWrittenSector > 5000 && Now().faults.isEmpty()) {
            recorders.Plan(u"A"_s, {.kind = GetParam().kind, .sector = 9000, .lasting = true});
        }
        return true;
    };
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Write(Order(12'000), planLater); }),
        Seen(GetParam().code));
    EXPECT_EQ(Now().disc->open->sectors, 9000);
}

INSTANTIATE_TEST_SUITE_P(All,
    WriteFaultTest,
    testing::Values(FaultRow {"medium", FaultKind::MediumError, drive::hresult::kWriteError},
        FaultRow {"streaming", FaultKind::LossOfStreaming, drive::hresult::kLossOfStreaming},
        FaultRow {"removed", FaultKind::Removed, drive::hresult::kNoMedia},
        FaultRow {"unplugged", FaultKind::Unplugged, drive::hresult::kDeviceGone}));

using FaultTest = VirtualBench;

TEST_F(FaultTest, HowFarAFailedWriteCameIsTold)
{
    for (const qint64 sector : {0, 500}) {
        Insert(u"dvd+r");
        recorders.Plan(u"A"_s, {.kind = FaultKind::MediumError, .sector = sector});
        qint64 told = -1;
        const auto hear = [&told](const drive::WriteProgress& progress) {
            told = progress.lastWrittenSector - progress.startSector;
            return true;
        };
        EXPECT_NE(velmora::test::ErrorNumberOf([&] { drive.Write(Order(1000), hear); }), 0);
        EXPECT_EQ(told, sector);
    }
}

TEST_F(FaultTest, StrikesInTheSessionThatReachesIt)
{
    Insert(u"cd-r");
    recorders.Plan(u"A"_s, {.kind = FaultKind::MediumError, .sector = 12'450});
    EXPECT_EQ(Write(1000), 0);
    EXPECT_EQ(Write(1000), Seen(drive::hresult::kWriteError)); // 12,400 to 13,399
    EXPECT_EQ(drive.Examine().nextWritable, 12'450);
    EXPECT_EQ(drive.Examine().sessions.size(), 1);
}

TEST_F(FaultTest, ARemovedDiscLiesInTheOpenTray)
{
    Insert(u"cd-r");
    recorders.Plan(u"A"_s, {.kind = FaultKind::Removed, .sector = 5});
    EXPECT_EQ(Write(10), Seen(drive::hresult::kNoMedia));
    EXPECT_TRUE(Now().trayOpen);
    EXPECT_EQ(drive.Examine().state, DiscState::None);
}

TEST_F(FaultTest, AnUnpluggedDriveAnswersNothing)
{
    Insert(u"cd-r");
    recorders.Plan(u"A"_s, {.kind = FaultKind::Unplugged, .sector = 5});
    EXPECT_EQ(Write(10), Seen(drive::hresult::kDeviceGone));
    const qint32 gone = Seen(drive::hresult::kDeviceGone);
    using velmora::test::ErrorNumberOf;
    EXPECT_EQ(ErrorNumberOf([&] { drive.Identify(); }), gone);
    EXPECT_EQ(ExamineError(), gone);
    EXPECT_EQ(ReadError(0), gone);
    EXPECT_EQ(Write(1), gone);
    EXPECT_EQ(ErrorNumberOf([&] { drive.Erase(false, {}); }), gone);
    EXPECT_EQ(ErrorNumberOf([&] { drive.Eject(); }), gone);
    EXPECT_EQ(ErrorNumberOf([&] { drive.CloseTray(); }), gone);
    EXPECT_EQ(ErrorNumberOf([&] { drive.Lock(true); }), gone);
    recorders.SetPlugged(u"A"_s, true);
    EXPECT_EQ(drive.Identify().id, u"virtual:A"_s);
}

TEST_F(FaultTest, ADriveWhoseFolderIsGoneIsUnplugged)
{
    Insert(u"cd-r");
    std::filesystem::remove_all(recorders.Root());
    EXPECT_EQ(
        velmora::test::ErrorNumberOf([&] { drive.Identify(); }), Seen(drive::hresult::kDeviceGone));
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kDeviceGone));
    EXPECT_EQ(Write(10), Seen(drive::hresult::kDeviceGone));
}

TEST_F(FaultTest, ADiscThatNeverGetsReadyDoesSoUntilItIsTakenOut)
{
    Insert(u"cd-r");
    recorders.Plan(u"A"_s, {.kind = FaultKind::NeverReady});
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kBecomingReady));
    clock.Pause(3600);
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kBecomingReady));
    EXPECT_EQ(Write(1), Seen(drive::hresult::kBecomingReady));
    drive.Eject();
    drive.CloseTray();
    EXPECT_EQ(ExamineError(), 0);
}

TEST_F(FaultTest, AFaultThatLastsOutlivesTheTray)
{
    Insert(u"cd-r");
    recorders.Plan(u"A"_s, {.kind = FaultKind::NeverReady, .lasting = true});
    drive.Eject();
    drive.CloseTray();
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kBecomingReady));
}

TEST_F(FaultTest, ASectorCantBeRead)
{
    Insert(u"dvd+r");
    ASSERT_EQ(Write(100), 0);
    recorders.Plan(u"A"_s, {.kind = FaultKind::ReadError, .sector = 50});
    EXPECT_EQ(ReadError(0, 50), 0);
    EXPECT_EQ(ReadError(51, 10), 0);
    EXPECT_EQ(ReadError(40, 20), Seen(drive::hresult::kImportReadFailure));
    EXPECT_EQ(ReadError(40, 20), 0);
    recorders.Plan(u"A"_s, {.kind = FaultKind::ReadError, .sector = 50, .lasting = true});
    EXPECT_EQ(ReadError(50), Seen(drive::hresult::kImportReadFailure));
    EXPECT_EQ(ReadError(50), Seen(drive::hresult::kImportReadFailure));
}

TEST_F(FaultTest, ASectorIsAlteredAndTheWriteCalledGood)
{
    Insert(u"dvd+r");
    recorders.Plan(u"A"_s, {.kind = FaultKind::Altered, .sector = 50});
    EXPECT_EQ(Write(100), 0);
    auto expected = Pattern(100, 7);
    expected[50 * 2048 + 1024] ^= std::byte {4};
    EXPECT_EQ(ReadBack(0, 100), expected);
    EXPECT_TRUE(Now().faults.isEmpty());
}

TEST_F(FaultTest, ASectorIsSwallowedAndTheWriteCalledGood)
{
    Insert(u"dvd-ram");
    EXPECT_EQ(Write(100), 0);
    const auto before = ReadBack(0, 100);
    Change([this](Description&) {});
    recorders.Plan(u"A"_s, {.kind = FaultKind::Swallowed, .sector = 50, .lasting = true});
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Write(Order(100, 8), {}); }), 0);
    auto expected = Pattern(100, 8);
    std::copy_n(before.begin() + 50 * 2048, 2048, expected.begin() + 50 * 2048);
    EXPECT_EQ(ReadBack(0, 100), expected) << "what was there stays";
    EXPECT_EQ(Now().faults.size(), 1);
}

TEST_F(FaultTest, ASectorIsReadSlowlyOnly)
{
    Insert(u"dvd+r");
    ASSERT_EQ(Write(100), 0);
    recorders.Plan(u"A"_s, {.kind = FaultKind::SlowRead, .sector = 50, .lasting = true});
    EXPECT_EQ(ReadError(40, 20), Seen(drive::hresult::kImportReadFailure));
    drive.SetReadSpeed(drive::ReadSpeed::Slowest);
    EXPECT_EQ(ReadError(40, 20), 0);
    drive.SetReadSpeed(drive::ReadSpeed::Fastest);
    EXPECT_EQ(ReadError(40, 20), Seen(drive::hresult::kImportReadFailure));
}

TEST_F(FaultTest, ADiscIsExchangedForABlankOneWhenASectorIsRead)
{
    Insert(u"dvd+r");
    ASSERT_EQ(Write(100), 0);
    recorders.Plan(u"A"_s, {.kind = FaultKind::Swapped, .sector = 50});
    EXPECT_EQ(ReadError(0, 50), 0);
    EXPECT_EQ(drive.Examine().sessions.size(), 1);
    EXPECT_EQ(ReadError(50), Seen(drive::hresult::kImportReadFailure));
    EXPECT_EQ(drive.Examine().state, DiscState::Blank);
}

TEST_F(FaultTest, ADriveGoesWhenASectorIsRead)
{
    Insert(u"dvd+r");
    ASSERT_EQ(Write(100), 0);
    recorders.Plan(u"A"_s, {.kind = FaultKind::GoneAtRead, .sector = 50});
    EXPECT_EQ(ReadError(0, 50), 0);
    EXPECT_EQ(ReadError(50), Seen(drive::hresult::kImportReadFailure));
    EXPECT_EQ(ReadError(0), Seen(drive::hresult::kDeviceGone));
}

TEST_F(FaultTest, EveryFailureIsToldInFrench)
{
    for (const qint32 published : {drive::hresult::kDeviceGone,
             drive::hresult::kCancelled,
             drive::hresult::kNoMedia,
             drive::hresult::kUpsideDown,
             drive::hresult::kBecomingReady,
             drive::hresult::kMediaBusy,
             drive::hresult::kWriteProtected,
             drive::hresult::kRecorderLocked,
             drive::hresult::kInvalidResponse,
             drive::hresult::kLossOfStreaming,
             drive::hresult::kWriteError,
             drive::hresult::kInvalidMediaState,
             drive::hresult::kStreamTooLarge,
             drive::hresult::kMediaNotSupported,
             drive::hresult::kNotErasable,
             drive::hresult::kEraseRefused,
             drive::hresult::kEraseMediaNotSupported,
             drive::hresult::kImportReadFailure}) {
        EXPECT_NE(drive::PublishedError(published).Description(), u"Erreur Automation"_s)
            << std::hex << published;
    }
}

} // namespace velmora::virtualdrive::test
