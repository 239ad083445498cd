// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;
using drive::DiscState;

namespace {

struct FaultRow {
    const char* name;
    FaultKind kind;
    quint32 code;
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
    EXPECT_EQ(Write(10), 0); // ends in front of it
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
    testing::Values(FaultRow {"medium", FaultKind::MediumError, 0xC0AA0301},
        FaultRow {"streaming", FaultKind::LossOfStreaming, 0xC0AA0300},
        FaultRow {"removed", FaultKind::Removed, 0xC0AA0202},
        FaultRow {"unplugged", FaultKind::Unplugged, 0x80070037}));

using FaultTest = VirtualBench;

TEST_F(FaultTest, StrikesInTheSessionThatReachesIt)
{
    Insert(u"cd-r");
    recorders.Plan(u"A"_s, {.kind = FaultKind::MediumError, .sector = 12'450});
    EXPECT_EQ(Write(1000), 0);
    EXPECT_EQ(Write(1000), Seen(0xC0AA0301)); // 12,400 to 13,399
    EXPECT_EQ(drive.Examine().nextWritable, 12'450);
    EXPECT_EQ(drive.Examine().sessions.size(), 1);
}

TEST_F(FaultTest, ARemovedDiscLiesInTheOpenTray)
{
    Insert(u"cd-r");
    recorders.Plan(u"A"_s, {.kind = FaultKind::Removed, .sector = 5});
    EXPECT_EQ(Write(10), Seen(0xC0AA0202));
    EXPECT_TRUE(Now().trayOpen);
    EXPECT_EQ(drive.Examine().state, DiscState::None);
}

TEST_F(FaultTest, AnUnpluggedDriveAnswersNothing)
{
    Insert(u"cd-r");
    recorders.Plan(u"A"_s, {.kind = FaultKind::Unplugged, .sector = 5});
    EXPECT_EQ(Write(10), Seen(0x80070037));
    const qint32 gone = Seen(0x80070037);
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
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Identify(); }), Seen(0x80070037));
    EXPECT_EQ(ExamineError(), Seen(0x80070037));
    EXPECT_EQ(Write(10), Seen(0x80070037));
}

TEST_F(FaultTest, ADiscThatNeverGetsReadyDoesSoUntilItIsTakenOut)
{
    Insert(u"cd-r");
    recorders.Plan(u"A"_s, {.kind = FaultKind::NeverReady});
    EXPECT_EQ(ExamineError(), Seen(0xC0AA0205));
    clock.Pause(3600);
    EXPECT_EQ(ExamineError(), Seen(0xC0AA0205));
    EXPECT_EQ(Write(1), Seen(0xC0AA0205));
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
    EXPECT_EQ(ExamineError(), Seen(0xC0AA0205));
}

TEST_F(FaultTest, ASectorCantBeRead)
{
    Insert(u"dvd+r");
    ASSERT_EQ(Write(100), 0);
    recorders.Plan(u"A"_s, {.kind = FaultKind::ReadError, .sector = 50});
    EXPECT_EQ(ReadError(0, 50), 0);
    EXPECT_EQ(ReadError(51, 10), 0);
    EXPECT_EQ(ReadError(40, 20), Seen(0xC0AAB157));
    EXPECT_EQ(ReadError(40, 20), 0);
    recorders.Plan(u"A"_s, {.kind = FaultKind::ReadError, .sector = 50, .lasting = true});
    EXPECT_EQ(ReadError(50), Seen(0xC0AAB157));
    EXPECT_EQ(ReadError(50), Seen(0xC0AAB157));
}

TEST_F(FaultTest, EveryFailureIsToldInFrench)
{
    for (const quint32 published : {0x80070037U,
             0xC0AA0002U,
             0xC0AA0202U,
             0xC0AA0204U,
             0xC0AA0205U,
             0xC0AA0207U,
             0xC0AA0209U,
             0xC0AA0210U,
             0xC0AA02FFU,
             0xC0AA0300U,
             0xC0AA0301U,
             0xC0AA0402U,
             0xC0AA0404U,
             0xC0AA0406U,
             0x80AA0904U,
             0x80AA0905U,
             0xC0AA0909U,
             0xC0AAB157U}) {
        EXPECT_NE(
            drive::PublishedError(drive::Hresult(published)).Description(), u"Erreur Automation"_s)
            << std::hex << published;
    }
}

} // namespace velmora::virtualdrive::test
