// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/drives/HangBench.h"

#include <ostream>
#include <stdexcept>
#include <string>

namespace velmora::test {

namespace {

struct LongErase {
    std::uint16_t profile;
    const char* command; ///< that begins it
    const char* name;
};

void PrintTo(const LongErase& erase, std::ostream* out) { *out << erase.name; }

constexpr LongErase kLongErases[] {
    {0x0A, "A1 ", "BlankingOfACd"},
    {0x14, "A1 ", "BlankingOfADvd"},
    {0x1A, "04 ", "FormattingOfADvd"},
    {0x12, "04 ", "FormattingOfADvdRam"},
    {0x43, "04 ", "FormattingOfABluRay"},
};

std::string NameOfLongErase(const testing::TestParamInfo<LongErase>& info)
{
    return info.param.name;
}

} // namespace

/// Full erases that don't end by themselves.
class EraseHangTest : public HangBench, public testing::WithParamInterface<LongErase> {
protected:
    EraseHangTest()
    {
        Insert(GetParam().profile);
        Fault([](mmc::Faults& faults) {
            faults.erasePolls = kForEver;
            faults.eraseTellsProgress = false;
        });
    }

    void Meanwhile(std::function<void()> happens) { After(GetParam().command, std::move(happens)); }

    void ExpectUsableAgain()
    {
        Fault([](mmc::Faults& faults) { faults = {}; });
        Insert(GetParam().profile);
        EXPECT_EQ(ErrorOfErase(false), 0);
    }
};

INSTANTIATE_TEST_SUITE_P(, EraseHangTest, testing::ValuesIn(kLongErases), NameOfLongErase);

TEST_P(EraseHangTest, ADiscThatIsTakenOutIsMissing)
{
    Meanwhile([this] { emulated.Change([](mmc::DriveState& state) { state.trayOpen = true; }); });

    EXPECT_EQ(ErrorOfErase(true), Number(drive::hresult::kNoMedia));
    EXPECT_FALSE(emulated.Locked());
    ExpectUsableAgain();
}

TEST_P(EraseHangTest, ADriveThatFailsAllTheTimeIsNotWaitedFor)
{
    Meanwhile([this] { Fault([](mmc::Faults& faults) { faults.brokenDown = true; }); });

    EXPECT_EQ(ErrorOfErase(true), Number(drive::hresult::kEraseRefused));
    EXPECT_FALSE(emulated.Locked());
    ExpectUsableAgain();
}

TEST_P(EraseHangTest, ADriveThatTellsOfOneEventAfterTheOtherIsGivenUp)
{
    Meanwhile([this] { Fault([](mmc::Faults& faults) { faults.attentions = 36; }); });

    EXPECT_EQ(ErrorOfErase(true), Number(drive::hresult::kEraseRefused));
}

TEST_P(EraseHangTest, ADriveThatStaysBusyIsGivenUpAfterHours)
{
    Meanwhile([this] { Run(3600); });

    EXPECT_EQ(ErrorOfErase(true), Number(drive::hresult::kEraseTooLong));
    pump.onPump = {};
    EXPECT_FALSE(emulated.Locked());
    ExpectUsableAgain();
}

TEST_P(EraseHangTest, ADriveThatStaysBusyIsWaitedForForMoreThanAnHour)
{
    Meanwhile([this] {
        hands.Pause(3700);
        Fault([](mmc::Faults& faults) { faults = {}; });
        emulated.EndTask();
    });

    EXPECT_EQ(ErrorOfErase(true), 0);
}

TEST_P(EraseHangTest, AStopEndsItAtOnce)
{
    bool stops = false;
    Meanwhile([&] {
        hands.Pause(1); // the next report
        stops = true;
    });

    const qint32 number = ErrorNumberOf(
        [&] { drive->Erase(true, [&](qint32 /*elapsed*/, qint32 /*all*/) { return !stops; }); });

    EXPECT_EQ(number, Number(drive::hresult::kEraseUnexpectedResponse));
    EXPECT_FALSE(emulated.Locked());
    ExpectUsableAgain();
}

TEST_P(EraseHangTest, AStopBeforeItBeginsErasesNothing)
{
    Fault([](mmc::Faults& faults) { faults.readyAfter = 20; });
    emulated.ForgetLog();

    const qint32 number = ErrorNumberOf(
        [&] { drive->Erase(true, [](qint32 /*elapsed*/, qint32 /*all*/) { return false; }); });

    EXPECT_EQ(number, Number(drive::hresult::kCancelled));
    EXPECT_FALSE(HasGot(GetParam().command));
    ExpectUsableAgain();
}

TEST_P(EraseHangTest, TheWordsSayWhatIsKnownOfTheDisc)
{
    const auto words = [this] { return WordsOfErrorOf([this] { drive->Erase(true, {}); }); };
    Meanwhile([this] { Run(3600); });
    EXPECT_TRUE(words().contains(u"le disque est peut-être effacé en partie"_s));
    emulated.EndTask();
    Meanwhile([this] { emulated.Change([](mmc::DriveState& state) { state.trayOpen = true; }); });
    EXPECT_TRUE(words().startsWith(u"Le disque a été retiré avant la fin"_s));
}

TEST_P(EraseHangTest, AFailureOfTheWindowDoesNotKeepItFromBeingGivenUp)
{
    Meanwhile([this] {
        pump.onPump = [this] { // the next time, when it is known that the erase has begun
            hands.Pause(4.0 * 3600);
            throw std::runtime_error("the window is gone");
        };
    });

    EXPECT_THROW(drive->Erase(true, {}), std::runtime_error);
    pump.onPump = {};
    EXPECT_FALSE(emulated.Locked());
    ExpectUsableAgain();
}

class LongEraseTest : public HangBench { };

TEST_F(LongEraseTest, AFailureAfterMoreThanAnHourIsAWornDisc)
{
    for (const auto& [seconds, number] : {std::pair {3600.0, Number(drive::hresult::kEraseRefused)},
             std::pair {3601.0, Number(drive::hresult::kEraseTooLong)}}) {
        Insert(0x0A);
        Fault([](mmc::Faults& faults) { faults.erasePolls = kForEver; });
        After("A1 ", [this, seconds = seconds] {
            hands.Pause(seconds);
            Fault([](mmc::Faults& faults) { faults.brokenDown = true; });
        });
        EXPECT_EQ(ErrorOfErase(true), number) << seconds;
        Fault([](mmc::Faults& faults) { faults = {}; });
    }
}

TEST_F(LongEraseTest, AnEraseThatTellsOfItsProgressMayTakeAllItsTime)
{
    Insert(0x0A);
    Fault([](mmc::Faults& faults) { faults.erasePolls = 100; });
    int pumps = 0;
    After("A1 ", [&] {
        pump.onPump = [&] {
            if (++pumps % 10 == 0 && pumps <= 100) {
                hands.Pause(3000); // eight hours in all
            }
        };
    });

    EXPECT_EQ(ErrorOfErase(true), 0);
    EXPECT_GE(hands.Timer(), 20000);
    pump.onPump = {};
    EXPECT_EQ(drive->Examine().state, drive::DiscState::Blank);
}

} // namespace velmora::test
