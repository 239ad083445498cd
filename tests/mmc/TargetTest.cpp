// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/mmc/Target.h"

#include "tests/mmc/Bytes.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <vector>

namespace velmora::mmc {

static void PrintTo(const Sense& sense, std::ostream* out)
{
    *out << std::hex << int {sense.key} << '/' << int {sense.code} << '/' << int {sense.qualifier};
}

// A drive that accepts everything would prove nothing about its users.
class TargetTest : public testing::Test {
protected:
    TargetTest() { sectors_.Open(folder_ / "sectors"); }

    void Insert(const Disc& disc)
    {
        state_.disc = disc;
        target_.DiscExchanged();
        Send({0x00, 0, 0, 0, 0, 0}); // reports the new disc
    }

    Refusal Send(std::initializer_list<std::uint8_t> block, std::vector<std::uint8_t> data = {})
    {
        const std::vector<std::uint8_t> bytes(block);
        return target_.Execute({bytes, data}).sense;
    }

    Refusal Write(std::uint16_t address, std::uint8_t count)
    {
        return Send({0x2A,
                        0,
                        0,
                        0,
                        static_cast<std::uint8_t>(address >> 8),
                        static_cast<std::uint8_t>(address),
                        0,
                        0,
                        count,
                        0},
            std::vector<std::uint8_t>(count * std::size_t {2048}));
    }

    std::size_t Violations() { return target_.Writing().Violations().size(); }

    test::TemporaryFolder folder_;
    DriveState state_;
    SectorFile sectors_;
    Target target_ {state_, sectors_};
};

TEST_F(TargetTest, ADiscTakesItsNextSectorAndNoOther)
{
    Insert(NewDisc(0x1B));

    EXPECT_EQ(Write(16, 16), kInvalidWriteAddress);
    EXPECT_EQ(Write(0, 16), Refusal {});
    EXPECT_EQ(Write(0, 16), kInvalidWriteAddress);
    EXPECT_EQ(Write(16, 16), Refusal {});
    EXPECT_EQ(Violations(), 2U);
}

TEST_F(TargetTest, ADiscEnds)
{
    Insert(NewDisc(0x41, 64));

    EXPECT_EQ(Write(0, 32), Refusal {});
    EXPECT_EQ(Write(32, 64), kEndOfArea);
}

TEST_F(TargetTest, AReservedTrackEnds)
{
    Insert(NewDisc(0x1B));
    ASSERT_EQ(Send({0x53, 0, 0, 0, 0, 0, 0, 0, 32, 0}), Refusal {});

    EXPECT_EQ(Write(0, 32), Refusal {});
    EXPECT_EQ(Write(32, 16), kEndOfArea);
}

TEST_F(TargetTest, AClosedDiscTakesNothing)
{
    Insert(ClosedDisc(0x1B, 100));

    EXPECT_EQ(Write(100, 16), kCannotWrite);
}

TEST_F(TargetTest, AnUnformattedDiscTakesNothing)
{
    Insert(NewDisc(0x1A));

    EXPECT_EQ(Write(0, 16), kFormatCorrupted);
    // FORMAT UNIT of type 26h to all that there is.
    EXPECT_EQ(Send({0x04, 0x11, 0, 0, 0, 0}, {0, 2, 0, 8, 255, 255, 255, 255, 0x98, 0, 0, 0}),
        Refusal {});
    EXPECT_EQ(Write(0, 16), kFormatting);
}

TEST_F(TargetTest, RestrictedOverwriteTakesWholeBlocks)
{
    Insert(NewDisc(0x13));

    EXPECT_EQ(Write(8, 16), kInvalidField);
    EXPECT_EQ(Write(16, 8), kInvalidField);
    EXPECT_EQ(Write(16, 16), Refusal {});
}

TEST_F(TargetTest, ACdWantsItsModeChosenFirst)
{
    Insert(NewDisc(0x09));

    EXPECT_EQ(Write(0, 16), kSequenceError);
}

TEST_F(TargetTest, WhatIsWrittenIsMadeSafeBeforeASessionIsClosed)
{
    Insert(NewDisc(0x1B));
    ASSERT_EQ(Write(0, 16), Refusal {});

    EXPECT_EQ(Send({0x5B, 0, 2, 0, 0, 0, 0, 0, 0, 0}), kSequenceError);
    EXPECT_EQ(Send({0x35, 0, 0, 0, 0, 0, 0, 0, 0, 0}), Refusal {});
    EXPECT_EQ(Send({0x5B, 0, 2, 0, 0, 0, 0, 0, 0, 0}), Refusal {});
    EXPECT_EQ(state_.disc.closedSessions, 1);
}

TEST_F(TargetTest, AWriteOnceDiscIsNotBlanked)
{
    Insert(NewDisc(0x09));

    EXPECT_EQ(Send({0xA1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}), kCannotBlank);
}

TEST_F(TargetTest, TheCountOfAWriteMustFitItsData)
{
    Insert(NewDisc(0x1B));

    EXPECT_EQ(
        Send({0x2A, 0, 0, 0, 0, 0, 0, 0, 2, 0}, std::vector<std::uint8_t>(2048)), kInvalidField);
    EXPECT_EQ(Violations(), 1U);
}

TEST_F(TargetTest, AnUnknownCommandIsRefused)
{
    Insert(NewDisc(0x1B));

    EXPECT_EQ(Send({0xF0, 0, 0, 0, 0, 0}), kUnknownCommand);
}

TEST_F(TargetTest, ALockedTrayStaysShut)
{
    Insert(NewDisc(0x1B));
    ASSERT_EQ(Send({0x1E, 0, 0, 0, 1, 0}), Refusal {});

    EXPECT_EQ(Send({0x1B, 0, 0, 0, 2, 0}), kRemovalPrevented);
}

TEST_F(TargetTest, ARefusedCommandMayLeaveBytesBehind)
{
    Insert(NewDisc(0x1B));
    state_.faults.refuses = 0x51;
    state_.faults.refusalsFillReply = true;
    std::vector<std::uint8_t> reply(34);
    const std::vector<std::uint8_t> block {0x51, 0, 0, 0, 0, 0, 0, 0, 34, 0};

    EXPECT_EQ(target_.Execute({block, reply}).sense, Refusal(state_.faults.refusedSense));
    EXPECT_EQ(reply[0], reply[33]);
    EXPECT_NE(reply[0], 0);
}

TEST_F(TargetTest, SenseDataComesInTheFormThatIsAskedFor)
{
    Outcome outcome;
    outcome.sense = kFormatting;
    outcome.progress = 0x1234;

    const auto fixed = SenseBytes(outcome, SenseForm::Fixed);
    ASSERT_EQ(fixed.size(), 18U);
    EXPECT_EQ((Sense {fixed[2], fixed[12], fixed[13]}), kFormatting);
    EXPECT_EQ(Get16(fixed, 16), 0x1234U);
    const auto brief = SenseBytes(outcome, SenseForm::Short);
    ASSERT_EQ(brief.size(), 8U);
    EXPECT_EQ(brief[2], 2);
    const auto described = SenseBytes(outcome, SenseForm::Descriptor);
    ASSERT_EQ(described.size(), 16U);
    EXPECT_EQ(described[0], 0x72);
    EXPECT_EQ((Sense {described[1], described[2], described[3]}), kFormatting);
    EXPECT_EQ(Get16(described, 13), 0x1234U);
    EXPECT_EQ(SenseBytes(outcome, SenseForm::Deferred)[0], 0x73);
}

TEST_F(TargetTest, TheStateFileKeepsTheDisc)
{
    Insert(NewDisc(0x1B));
    ASSERT_EQ(Write(0, 16), Refusal {});
    state_.faults.writeFailsAt = 77;
    state_.faults.writeSense = {3, 0x0C, 0x09};
    state_.faults.refuses = 0x51;
    state_.faults.refusedSense = {4, 0x3E, 0x02};
    state_.faults.senseForm = SenseForm::Descriptor;
    SaveState(folder_ / "state", state_);

    const DriveState loaded = LoadState(folder_ / "state");

    EXPECT_EQ(loaded.disc.profile, 0x1B);
    ASSERT_EQ(loaded.disc.tracks.size(), 1U);
    EXPECT_EQ(loaded.disc.NextStart(), state_.disc.NextStart());
    EXPECT_EQ(loaded.disc.tracks[0].written, 16);
    EXPECT_EQ(loaded.faults.writeFailsAt, 77);
    EXPECT_EQ(loaded.faults.writeSense, (Sense {3, 0x0C, 0x09}));
    EXPECT_EQ(loaded.faults.refuses, 0x51);
    EXPECT_EQ(loaded.faults.refusedSense, (Sense {4, 0x3E, 0x02}));
    EXPECT_EQ(loaded.faults.senseForm, SenseForm::Descriptor);
}

} // namespace velmora::mmc
