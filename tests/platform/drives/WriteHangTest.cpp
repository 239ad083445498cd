// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/drives/HangBench.h"

#include <atomic>
#include <initializer_list>

namespace velmora::test {

namespace {

constexpr qint64 kSectors = 2000;
constexpr qint64 kManySectors = 200000;

constexpr double kMinutes = 60; // seconds

using drive::WriteAction;

} // namespace

/// Writes that don't end by themselves.
class WriteHangTest : public HangBench {
protected:
    /// When a write comes to that action.
    void At(WriteAction action, std::function<void()> happens)
    {
        onReport = [action, happens = std::move(happens), has = false](
                       const drive::WriteProgress& progress) mutable {
            if (progress.action == action && !has) {
                has = true;
                happens();
            }
            return true;
        };
    }

    /// From that action on the write is to stop.
    void StopAt(WriteAction action)
    {
        onReport
            = [action](const drive::WriteProgress& progress) { return progress.action < action; };
    }

    static drive::WriteOrder ClosingOrder()
    {
        drive::WriteOrder order = OrderOf(kSectors);
        order.closeDisc = true;
        return order;
    }

    void ExpectUsableAgain()
    {
        EXPECT_FALSE(emulated.Locked());
        EXPECT_EQ(emulated.OpenHandles(), 0);
        onReport = {};
        pump.onPump = {};
        Fault([](mmc::Faults& faults) { faults = {}; });
        Insert(0x1B);
        Write(OrderOf(kSectors, 7));
        EXPECT_EQ(emulated.Sectors(0, kSectors), SectorsOf(kSectors, 7));
    }

    static constexpr std::initializer_list<std::uint16_t> kProfiles {0x09, 0x11, 0x1B, 0x41, 0x43};
};

TEST_F(WriteHangTest, ADriveThatNeverEndsTheSessionIsGivenUpAfterMoreThanHalfAnHour)
{
    for (const std::uint16_t profile : kProfiles) {
        Insert(profile);
        Fault([](mmc::Faults& faults) {
            faults.syncPolls = kForEver;
            faults.closePolls = kForEver;
        });
        At(WriteAction::Finalization, [this] { Run(kMinutes); });
        const double begun = hands.Timer();

        EXPECT_EQ(ErrorOfWrite(ClosingOrder()), Number(drive::hresult::kCommandTimeout)) << profile;

        EXPECT_GE(hands.Timer() - begun, 40 * kMinutes) << profile;

        EXPECT_EQ(emulated.Sectors(0, kSectors), SectorsOf(kSectors, 1)) << profile;
        ExpectUsableAgain();
    }
}

TEST_F(WriteHangTest, TheWordsSayWhatIsKnownOfTheDisc)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) { faults.closePolls = kForEver; });
    At(WriteAction::Finalization, [this] { Run(kMinutes); });
    EXPECT_TRUE(WordsOfErrorOf([this] {
        Write(ClosingOrder());
    }).startsWith(u"Toutes les données sont gravées, mais le graveur n'a pas fini"_s));
    ExpectUsableAgain();
}

TEST_F(WriteHangTest, ADriveMayTakeHalfAnHourToEndASession)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) {
        faults.syncPolls = 20;
        faults.closePolls = 20;
    });
    After("5B ", [this] { hands.Pause(30 * kMinutes); });

    EXPECT_EQ(ErrorOfWrite(ClosingOrder()), 0);
    EXPECT_TRUE(Disc().finalized);
}

// A cancel would keep the library from ending what it has begun.
TEST_F(WriteHangTest, AStopWhileADriveTakesItsTimeToEndTheSessionLeavesTheDiscComplete)
{
    for (const std::uint16_t profile : std::initializer_list<std::uint16_t> {0x1B, 0x41}) {
        Insert(profile);
        Fault([](mmc::Faults& faults) {
            faults.syncPolls = 20;
            faults.busyCloses = 50;
        });
        StopAt(WriteAction::Finalization);

        EXPECT_EQ(ErrorOfWrite(ClosingOrder()), 0) << profile;

        EXPECT_TRUE(Disc().finalized) << profile;
        ExpectUsableAgain();
    }
}

TEST_F(WriteHangTest, AStopWhileTheSessionNeverEndsIsHeardAfterSomeMinutes)
{
    for (const std::uint16_t profile : kProfiles) {
        Insert(profile);
        Fault([](mmc::Faults& faults) {
            faults.syncPolls = kForEver;
            faults.closePolls = kForEver;
        });
        StopAt(WriteAction::Finalization);
        After("35 ", [this] { Run(10); });
        const double begun = hands.Timer();

        EXPECT_EQ(ErrorOfWrite(ClosingOrder()), Number(drive::hresult::kCancelled)) << profile;

        EXPECT_GE(hands.Timer() - begun, 5 * kMinutes) << profile;
        ExpectUsableAgain();
    }
}

TEST_F(WriteHangTest, ADriveThatTakesNoMoreSectorsIsGivenUpAfterSomeMinutes)
{
    for (const std::uint16_t profile : kProfiles) {
        Insert(profile);
        Fault([](mmc::Faults& faults) {
            faults.busyAt = 1000;
            faults.busyWrites = kForEver;
        });
        At(WriteAction::WritingData, [this] { Run(10); });
        const double begun = hands.Timer();

        EXPECT_EQ(ErrorOfWrite(OrderOf(kManySectors)), Number(drive::hresult::kCommandTimeout))
            << profile;

        EXPECT_GE(hands.Timer() - begun, 5 * kMinutes) << profile;
        ExpectUsableAgain();
    }
}

// A command that the drive has received can't be withdrawn.
TEST_F(WriteHangTest, ACommandThatHangsIsTheLastOne)
{
    for (const bool stops : {false, true}) {
        Insert(0x43);
        Fault([](mmc::Faults& faults) {
            faults.hangsAt = 1000;
            faults.hangMilliseconds = 2000;
        });
        At(WriteAction::WritingData, [this] { Run(10); });
        if (stops) {
            onReport = [this](const drive::WriteProgress& progress) {
                const bool goesOn = progress.lastWrittenSector < 900;
                if (!goesOn) {
                    Run(10);
                }
                return goesOn;
            };
        }
        const qint32 number = stops ? drive::hresult::kCancelled : drive::hresult::kCommandTimeout;

        EXPECT_EQ(ErrorOfWrite(OrderOf(kManySectors)), Number(number)) << stops;

        EXPECT_EQ(emulated.Sectors(0, 900), SectorsOf(900, 1)) << stops;
        EXPECT_EQ(emulated.Sectors(2000, 1), std::vector<std::uint8_t>(2048)) << stops;
        ExpectUsableAgain();
    }
}

TEST_F(WriteHangTest, ADriveThatIsStarvedIsWaitedFor)
{
    Insert(0x1B);
    std::atomic<bool> isAsleep = true; // the disk with the first file
    drive::WriteOrder order = OrderOf(kSectors);
    order.source = [&isAsleep, source = order.source](std::span<std::byte> out) {
        isAsleep.wait(true);
        source(out);
    };
    int pumps = 0;
    pump.onPump = [&] {
        if (!HasGot("53 ") || !isAsleep) {
            return;
        }
        constexpr int kFewPumps = 10;
        if (++pumps % kFewPumps == 0) {
            hands.Pause(2 * kMinutes);
        }
        if (pumps == 5 * kFewPumps) {
            isAsleep = false;
            isAsleep.notify_all();
        }
    };

    EXPECT_EQ(ErrorOfWrite(order), 0);
    EXPECT_GE(hands.Timer(), 10 * kMinutes);
}

TEST_F(WriteHangTest, AStopIsHeardByADriveThatTakesNoMoreSectors)
{
    for (const std::uint16_t profile : kProfiles) {
        Insert(profile);
        Fault([](mmc::Faults& faults) {
            faults.busyAt = 1000;
            faults.busyWrites = kForEver;
            faults.syncPolls = kForEver;
        });
        StopAt(WriteAction::WritingData);
        Run(5);

        EXPECT_EQ(ErrorOfWrite(OrderOf(kManySectors)), Number(drive::hresult::kCancelled))
            << profile;
        ExpectUsableAgain();
    }
}

TEST_F(WriteHangTest, ADriveThatTellsOfOneEventAfterTheOtherEndsAWrite)
{
    for (const std::uint16_t profile : kProfiles) {
        Insert(profile);
        At(WriteAction::WritingData, [this] {
            Fault([](mmc::Faults& faults) { faults.attentions = kForEver; });
            Run(10);
        });

        EXPECT_NE(ErrorOfWrite(OrderOf(kManySectors)), 0) << profile;

        Fault([](mmc::Faults& faults) { faults = {}; });
        EXPECT_NE(drive->Examine().state, drive::DiscState::None);
        expectedViolations = emulated.Violations(); // the library abandons what it can't end
        ExpectUsableAgain();
    }
}

TEST_F(WriteHangTest, ADriveThatIsNeverReadyIsGivenUp)
{
    Insert(0x1B);
    const auto expectGivenUp = [this](const std::function<void()>& call) {
        Fault([](mmc::Faults& faults) {
            faults = {};
            faults.startPolls = kForEver; // so it is ready until the library has started it
        });
        Run(kMinutes);
        EXPECT_EQ(ErrorNumberOf(call), Number(drive::hresult::kCommandTimeout));
        EXPECT_FALSE(emulated.Locked());
    };
    expectGivenUp([this] { drive->Examine(); });
    expectGivenUp([this] { Write(OrderOf(kSectors)); });
    expectGivenUp([this] { drive->Erase(false, {}); });
    expectGivenUp([this] { drive->Lock(false); });
    EXPECT_TRUE(Disc().Blank());
    ExpectUsableAgain();
}

TEST_F(WriteHangTest, AStopIsHeardByADriveThatIsNeverReady)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) { faults.startPolls = kForEver; });
    emulated.ForgetLog();
    onReport = [this](const drive::WriteProgress&) { return !HasGot("1B "); };

    EXPECT_EQ(ErrorOfWrite(OrderOf(kSectors)), Number(drive::hresult::kCancelled));
    EXPECT_TRUE(Disc().Blank());
    ExpectUsableAgain();
}

TEST_F(WriteHangTest, ADriveThatHangsWhenItIsLetGoOfHasWrittenAllTheSame)
{
    Insert(0x43);
    Fault([](mmc::Faults& faults) { faults.stopPolls = kForEver; });
    After("1B 01 00 00 00 00", [this] { Run(kMinutes); });

    EXPECT_EQ(ErrorOfWrite(OrderOf(kSectors)), 0);

    EXPECT_EQ(emulated.Sectors(0, kSectors), SectorsOf(kSectors, 1));
    ExpectUsableAgain();
}

TEST_F(WriteHangTest, AFormatThatNeverEndsIsGivenUpOrStopped)
{
    const auto insert = [this] {
        mmc::Disc disc = mmc::NewDisc(0x43);
        disc.formatted = false;
        disc.formattedSize = 0;
        emulated.Insert(disc);
        Fault([](mmc::Faults& faults) { faults.erasePolls = kForEver; });
    };
    insert();
    After("04 ", [this] { Run(10 * kMinutes); });
    EXPECT_EQ(ErrorOfWrite(OrderOf(kSectors)), Number(drive::hresult::kCommandTimeout));
    ExpectUsableAgain();

    insert();
    StopAt(WriteAction::FormattingMedia);
    EXPECT_EQ(ErrorOfWrite(OrderOf(kSectors)), Number(drive::hresult::kCancelled));
    ExpectUsableAgain();
}

} // namespace velmora::test
