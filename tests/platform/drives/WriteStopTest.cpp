// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/drives/WriteFaultBench.h"

namespace velmora::test {

class WriteStopTest : public WriteFaultBench { };

TEST_F(WriteStopTest, AStoppedWriteIsCancelledAndTheDriveIsFree)
{
    for (const std::uint16_t profile : Profiles {0x09, 0x11, 0x1B, 0x41, 0x43}) {
        Insert(profile);
        constexpr qint64 kLong = 200000;
        onReport = [](const drive::WriteProgress& progress) {
            return progress.action != drive::WriteAction::WritingData;
        };
        EXPECT_EQ(ErrorOfWrite(OrderOf(kLong)), Number(drive::hresult::kCancelled)) << profile;
        onReport = {};
        ExpectUsableAgain();
    }
}

// Cancelling at that moment would leave a session that is neither open nor ended.
TEST_F(WriteStopTest, AStopWhileTheSessionEndsComesTooLateForTheDisc)
{
    for (const std::uint16_t profile : Profiles {0x09, 0x11, 0x1B, 0x41, 0x43}) {
        Insert(profile);
        drive::WriteOrder order = OrderOf(kFaultSectors);
        order.closeDisc = true;
        reports.clear();
        onReport = [](const drive::WriteProgress& progress) {
            return progress.action != drive::WriteAction::Finalization;
        };
        EXPECT_EQ(ErrorOfWrite(order), 0) << profile;
        onReport = {};

        EXPECT_EQ(reports.back().action, drive::WriteAction::Completed) << profile;
        EXPECT_EQ(emulated.Sectors(0, kFaultSectors), SectorsOf(kFaultSectors, 1)) << profile;
        EXPECT_EQ(drive->Examine().state,
            profile == 0x43 ? drive::DiscState::Overwritable : drive::DiscState::Closed)
            << profile;
        ExpectUsableAgain();
    }
}

TEST_F(WriteStopTest, ASessionThatCannotBeEndedIsAFailureDespiteAStop)
{
    constexpr int kCloseSession = 0x5B;
    Insert(0x1B);
    Fault([](mmc::Faults& faults) { faults.refuses = kCloseSession; });
    drive::WriteOrder order = OrderOf(kFaultSectors);
    order.closeDisc = true;
    onReport = [](const drive::WriteProgress& progress) {
        return progress.action != drive::WriteAction::Finalization;
    };
    const qint32 number = ErrorOfWrite(order);
    EXPECT_NE(number, 0);
    EXPECT_NE(number, Number(drive::hresult::kCancelled));
}

TEST_F(WriteStopTest, TheLastReportIsTooLateForAStop)
{
    Insert(0x1B);
    onReport = [](const drive::WriteProgress& progress) {
        return progress.action != drive::WriteAction::Completed;
    };

    Write(OrderOf(kFaultSectors));

    EXPECT_EQ(reports.back().action, drive::WriteAction::Completed);
}

TEST_F(WriteStopTest, AWriteThatIsStoppedBeforeItBeginsLeavesTheDiscBlank)
{
    Insert(0x1B);
    onReport = [](const drive::WriteProgress&) { return false; };
    Fault([](mmc::Faults& faults) { faults.readyAfter = 3; }); // time for the first report

    EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kCancelled));

    EXPECT_TRUE(Disc().Blank());
}

// An image is made for its start address, which the rest of a reserved track is not.
TEST_F(WriteStopTest, NothingIsWrittenBehindACancelledRecording)
{
    Insert(0x1B);
    onReport = [](const drive::WriteProgress& progress) {
        return progress.action != drive::WriteAction::WritingData;
    };
    ASSERT_EQ(ErrorOfWrite(OrderOf(200000)), Number(drive::hresult::kCancelled));
    onReport = {};
    const drive::DiscInfo info = drive->Examine();
    ASSERT_EQ(info.state, drive::DiscState::Appendable);
    EXPECT_TRUE(info.lastSessionOpen);

    EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors, 2)), Number(drive::hresult::kInvalidMediaState));
}

} // namespace velmora::test
