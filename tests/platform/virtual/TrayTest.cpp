// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;
using drive::DiscState;
using velmora::test::ErrorNumberOf;

using TrayTest = VirtualBench;

TEST_F(TrayTest, AnEmptyDriveIsNoError)
{
    EXPECT_EQ(drive.Examine().state, DiscState::None);
    EXPECT_EQ(drive.Examine().profile, 0);
    EXPECT_EQ(Write(1), Seen(drive::hresult::kNoMedia));
    EXPECT_EQ(ReadError(0), Seen(drive::hresult::kNoMedia));
}

TEST_F(TrayTest, ADiscInTheOpenTrayIsNotInTheDrive)
{
    Insert(u"cd-r");
    drive.Eject();
    EXPECT_EQ(drive.Examine().state, DiscState::None);
    EXPECT_EQ(Write(1), Seen(drive::hresult::kNoMedia));
    drive.CloseTray();
    EXPECT_EQ(drive.Examine().state, DiscState::Blank);
}

TEST_F(TrayTest, OpeningAndClosingTwiceDoesNothingMore)
{
    drive.Eject();
    drive.Eject();
    EXPECT_TRUE(Now().trayOpen);
    drive.CloseTray();
    drive.CloseTray();
    EXPECT_FALSE(Now().trayOpen);
}

TEST_F(TrayTest, ATrayCanBeStuck)
{
    Insert(u"cd-r");
    recorders.Plan(u"A"_s, {.kind = FaultKind::TrayStuck});
    drive.Eject();
    EXPECT_EQ(ErrorNumberOf([&] { drive.CloseTray(); }), Seen(drive::hresult::kFail));
    EXPECT_TRUE(Now().trayOpen);
    EXPECT_EQ(ErrorNumberOf([&] { drive.CloseTray(); }), 0);
    EXPECT_FALSE(Now().trayOpen);
}

TEST_F(TrayTest, ADiscThatIsPutInAStuckTrayLiesInIt)
{
    recorders.Plan(u"A"_s, {.kind = FaultKind::TrayStuck, .lasting = true});
    EXPECT_EQ(ErrorNumberOf([&] { Insert(u"cd-rw"); }), Seen(drive::hresult::kFail));
    EXPECT_TRUE(Now().trayOpen);
    ASSERT_TRUE(Now().disc);
    recorders.ClearFaults(u"A"_s);
    recorders.Close(u"A"_s, clock);
    EXPECT_EQ(drive.Examine().profile, 0x0A);
}

TEST_F(TrayTest, ATrayThatIsClosedByHandCantBePulledIn)
{
    Change([](Description& now) { now.drive.canLoadMedia = false; });
    EXPECT_FALSE(drive.Identify().canLoadMedia);
    drive.Eject();
    EXPECT_EQ(ErrorNumberOf([&] { drive.CloseTray(); }), Seen(drive::hresult::kFail));
    recorders.Close(u"A"_s, clock); // by hand
    EXPECT_FALSE(Now().trayOpen);
}

TEST_F(TrayTest, WhoHoldsTheDriveKeepsOthersOut)
{
    Insert(u"cd-rw");
    VirtualDrive other(recorders.Folder(u"A"_s), clock, pump);
    drive.Lock(false);
    const qint32 locked = Seen(drive::hresult::kRecorderLocked);
    EXPECT_EQ(ErrorNumberOf([&] { other.Lock(true); }), locked);
    EXPECT_EQ(ErrorNumberOf([&] { other.Examine(); }), locked);
    EXPECT_EQ(ErrorNumberOf([&] { other.Eject(); }), locked);
    EXPECT_EQ(ErrorNumberOf([&] { other.CloseTray(); }), locked);
    EXPECT_EQ(ErrorNumberOf([&] { other.Erase(false, {}); }), locked);
    EXPECT_EQ(ErrorNumberOf([&] { other.Write(Order(1), {}); }), locked);
    EXPECT_EQ(ErrorNumberOf([&] { Insert(u"cd-r"); }), locked);
    EXPECT_EQ(ErrorNumberOf([&] { recorders.TakeOut(u"A"_s); }), locked);
    EXPECT_EQ(other.Identify().id, u"virtual:A"_s);
    EXPECT_EQ(Write(100), 0);
    EXPECT_EQ(ErrorNumberOf([&] { other.Lock(true); }), locked); // still
    drive.Unlock();
    other.Lock(true);
    EXPECT_EQ(ExamineError(), locked);
}

TEST_F(TrayTest, ADriveIsLetGoWithItsObject)
{
    {
        VirtualDrive other(recorders.Folder(u"A"_s), clock, pump);
        other.Lock(false);
        EXPECT_EQ(ExamineError(), Seen(drive::hresult::kRecorderLocked));
    }
    EXPECT_EQ(ExamineError(), 0);
}

TEST_F(TrayTest, WhoeverStandsBeforeTheDriveOpensItWhileItWrites)
{
    Change([](Description& now) { now.drive.realTiming = true; });
    Insert(u"dvd+r");
    clock.Pause(10);
    const auto openIt = [&](const drive::WriteProgress& progress) {
        if (progress.lastWrittenSector > 5000) {
            recorders.Eject(u"A"_s);
        }
        return true;
    };
    EXPECT_EQ(
        ErrorNumberOf([&] { drive.Write(Order(20'000), openIt); }), Seen(drive::hresult::kNoMedia));
    recorders.Close(u"A"_s, clock);
    clock.Pause(10);
    const drive::DiscInfo info = drive.Examine();
    EXPECT_TRUE(info.damaged);
    EXPECT_GT(info.nextWritable, 5000);
    EXPECT_EQ(ReadBack(0, 5000), Pattern(5000, 7));
}

} // namespace velmora::virtualdrive::test
