// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/drives/DriveBench.h"

#include <array>
#include <initializer_list>
#include <ostream>
#include <vector>

namespace velmora::test {

namespace {

using mmc::SenseForm;

constexpr qint64 kRecordedSectors = 1000;

// Operation codes.
constexpr int kTestUnitReady = 0x00;
constexpr int kInquiry = 0x12;
constexpr int kReadFormatCapacities = 0x23;
constexpr int kReadCapacity = 0x25;
constexpr int kReadToc = 0x43;
constexpr int kGetConfiguration = 0x46;
constexpr int kReadDiscInformation = 0x51;
constexpr int kReadTrackInformation = 0x52;
constexpr int kModeSense = 0x5A;
constexpr int kGetPerformance = 0xAC;

struct FormOfSense {
    SenseForm form;
    const char* name;
};

void PrintTo(const FormOfSense& form, std::ostream* out) { *out << form.name; }

constexpr FormOfSense kForms[] {
    {SenseForm::Fixed, "Fixed"},
    {SenseForm::Short, "Short"},
    {SenseForm::Descriptor, "Descriptor"},
    {SenseForm::Deferred, "Deferred"},
};
// The formats that tell why a command failed, and not only what kind of failure it was.
constexpr FormOfSense kWholeForms[] {kForms[0], kForms[2], kForms[3]};

std::string NameOfForm(const testing::TestParamInfo<FormOfSense>& info) { return info.param.name; }

using ProfileNumbers = std::initializer_list<std::uint16_t>;

} // namespace

/// Drives that refuse a single command, in each format of sense data.
class RefusedCommandTest : public DriveBench, public testing::WithParamInterface<FormOfSense> {
protected:
    void Refuse(int command, const mmc::Sense& sense = {4, 0x44, 0x00})
    {
        Fault([command, &sense](mmc::Faults& faults) {
            faults.refuses = command;
            faults.refusedSense = sense;
            faults.refusalsFillReply = true;
            faults.senseForm = GetParam().form;
        });
    }
    void InsertRecorded(std::uint16_t profile)
    {
        Fault([](mmc::Faults& faults) { faults = {}; });
        Insert(profile);
        Write(OrderOf(kRecordedSectors));
    }
    qint32 ErrorOfLook()
    {
        return ErrorNumberOf([this] { drive->Examine(); });
    }
    /// A failure, reported as the drive's and not the disc's, after which the drive is free again.
    void ExpectFailingDrive(int command, std::uint16_t profile)
    {
        EXPECT_EQ(ErrorOfLook(), Number(drive::hresult::kInvalidResponse))
            << std::hex << profile << ", command " << command;
        EXPECT_EQ(emulated.OpenHandles(), 0);
    }
};
class RefusedForReasonTest : public RefusedCommandTest { };

INSTANTIATE_TEST_SUITE_P(, RefusedCommandTest, testing::ValuesIn(kForms), NameOfForm);
INSTANTIATE_TEST_SUITE_P(, RefusedForReasonTest, testing::ValuesIn(kWholeForms), NameOfForm);

TEST_P(RefusedCommandTest, ADriveThatCannotSayWhatItIsFails)
{
    for (const int command : {kInquiry, kGetConfiguration}) {
        Refuse(command);
        EXPECT_EQ(
            ErrorNumberOf([this] { drive->Identify(); }), Number(drive::hresult::kInvalidResponse))
            << command;
    }
}

TEST_P(RefusedCommandTest, ADriveThatCannotSayWhatItIsIsNotKept)
{
    Insert(0x1B);
    Refuse(kInquiry);

    ExpectFailingDrive(kInquiry, 0x1B);
}

TEST_P(RefusedCommandTest, ADriveThatIsNeverReadyForAFaultOfItsOwnFails)
{
    Insert(0x1B);
    Refuse(kTestUnitReady);

    ExpectFailingDrive(kTestUnitReady, 0x1B);
}

// The library takes such a disc for an unsuitable one.
TEST_P(RefusedCommandTest, ADriveThatCannotTellOfItsDiscMakesItNoUnsuitableOne)
{
    for (const std::uint16_t profile : ProfileNumbers {0x09, 0x0A, 0x14, 0x1B, 0x41, 0x43}) {
        for (const int command : {kGetConfiguration, kReadDiscInformation}) {
            Insert(profile);
            Refuse(command);
            ExpectFailingDrive(command, profile);
        }
    }
}

TEST_P(RefusedCommandTest, ADriveThatCannotTellOfTheTracksOfACdFails)
{
    InsertRecorded(0x09);
    Refuse(kReadToc);

    ExpectFailingDrive(kReadToc, 0x09);
}

// The library takes such a disc for a damaged one.
TEST_P(RefusedCommandTest, ADriveThatCannotTellWhereToWriteMakesNoDamagedDisc)
{
    for (const std::uint16_t profile : ProfileNumbers {0x09, 0x14, 0x1B, 0x41}) {
        for (const bool isRecorded : {false, true}) {
            Insert(profile);
            if (isRecorded) {
                InsertRecorded(profile);
            }
            Refuse(kReadTrackInformation);
            ExpectFailingDrive(kReadTrackInformation, profile);
        }
    }
}

TEST_P(RefusedCommandTest, ADriveThatCannotTellTheSizeMakesNoFullDisc)
{
    for (const std::uint16_t profile : ProfileNumbers {0x12, 0x13, 0x1A, 0x43}) {
        Insert(profile);
        Refuse(kReadFormatCapacities);
        ExpectFailingDrive(kReadFormatCapacities, profile);
    }
}

// The library reads the capacity from what the refused command left in the buffer.
TEST_P(RefusedCommandTest, TheCapacityOfAClosedDiscIsNotTakenFromARefusal)
{
    emulated.Insert(mmc::ClosedDisc(0x1B, kRecordedSectors));
    Refuse(kReadCapacity);

    ExpectFailingDrive(kReadCapacity, 0x1B);
}

// Either of two commands gives the speeds.
TEST_P(RefusedCommandTest, ADriveThatTellsSpeedsInOneWayOnlyIsUsed)
{
    for (const int command : {kModeSense, kGetPerformance}) {
        Insert(0x1B);
        Refuse(command);
        const drive::DiscInfo info = drive->Examine();
        EXPECT_EQ(info.state, drive::DiscState::Blank) << command;
        EXPECT_EQ(info.writeSpeeds, (QList<quint32> {10820, 8115, 5410, 2705})) << command;
    }
}

// An old drive has no such command, which is no failure.
TEST_P(RefusedCommandTest, ADriveWithoutProfilesIsKnownByItsModePage)
{
    Refuse(kGetConfiguration, mmc::kUnknownCommand);

    const drive::DriveFacts facts = drive->Identify();

    EXPECT_EQ(facts.profiles, (QList<qint32> {0x09, 0x0A, 0x11, 0x12}));
    EXPECT_FALSE(facts.canLoadMedia);
}

TEST_P(RefusedCommandTest, AClosedDiscWithoutACapacityIsLookedAt)
{
    emulated.Insert(mmc::ClosedDisc(0x1B, kRecordedSectors));
    Refuse(kReadCapacity, mmc::kInvalidField);

    const drive::DiscInfo info = drive->Examine();

    EXPECT_EQ(info.state, drive::DiscState::Closed);
    EXPECT_EQ(info.totalSectors, 0);
}

TEST_P(RefusedCommandTest, ADiscThatCannotBeReadSaysSo)
{
    Insert(0x1B);
    Refuse(kReadDiscInformation, mmc::kUnreadable);

    EXPECT_EQ(ErrorOfLook(), Number(drive::hresult::kImportReadFailure));
}

TEST_P(RefusedForReasonTest, ADiscThatCannotBeReadIsErasedAllTheSame)
{
    for (const int command : {kReadToc, kReadDiscInformation}) {
        InsertRecorded(0x0A);
        Refuse(command, mmc::kUnreadable);
        EXPECT_TRUE(drive->Examine().erasable) << command;
    }
    InsertRecorded(0x0A);
    Refuse(kReadToc, mmc::kUnreadable);

    EXPECT_EQ(ErrorOfErase(true), 0);
    EXPECT_EQ(drive->Examine().state, drive::DiscState::Blank);
}

TEST_P(RefusedForReasonTest, ADiscThatSpinsUpIsWaitedFor)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) {
        faults.readyAfter = 5;
        faults.senseForm = GetParam().form;
    });

    EXPECT_EQ(drive->Examine().state, drive::DiscState::Blank);
}

TEST_P(RefusedCommandTest, ADiscThatNeverSpinsUpIsGivenUp)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) {
        faults.readyAfter = 100000;
        faults.senseForm = GetParam().form;
    });

    EXPECT_EQ(ErrorOfLook(), Number(drive::hresult::kBecomingReady));
}

TEST_P(RefusedForReasonTest, AnEmptyTrayIsNoError)
{
    Fault([](mmc::Faults& faults) { faults.senseForm = GetParam().form; });

    EXPECT_EQ(drive->Examine().state, drive::DiscState::None);
}

TEST_P(RefusedForReasonTest, ATrayThatIsKeptShutIsLocked)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) {
        faults.ejectRefused = true;
        faults.senseForm = GetParam().form;
    });

    EXPECT_EQ(ErrorNumberOf([this] { drive->Eject(); }), Number(drive::hresult::kRecorderLocked));
}

TEST_P(RefusedCommandTest, ATrayThatDoesNotOpenIsNotCalledOpen)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) {
        faults.trayStuck = true;
        faults.senseForm = GetParam().form;
    });

    EXPECT_EQ(ErrorNumberOf([this] { drive->Eject(); }), Number(drive::hresult::kFail));
}

TEST_P(RefusedForReasonTest, AWriteThatFailsSaysWhy)
{
    const auto errorOf = [this](const mmc::Sense& sense) {
        Insert(0x1B);
        Fault([&sense](mmc::Faults& faults) {
            faults.writeFailsAt = 32;
            faults.writeSense = sense;
            faults.senseForm = GetParam().form;
        });
        return ErrorOfWrite(OrderOf(kRecordedSectors));
    };

    EXPECT_EQ(errorOf({3, 0x0C, 0x00}), Number(drive::hresult::kWriteError));
    EXPECT_EQ(errorOf({3, 0x0C, 0x09}), Number(drive::hresult::kLossOfStreaming));
    EXPECT_EQ(errorOf({7, 0x27, 0x00}), Number(drive::hresult::kWriteProtected));
    EXPECT_EQ(errorOf({5, 0x63, 0x00}), Number(drive::hresult::kStreamTooLarge));
}

TEST_P(RefusedForReasonTest, AnEraseIsFollowedToItsEnd)
{
    InsertRecorded(0x0A);
    Fault([](mmc::Faults& faults) { faults.senseForm = GetParam().form; });
    EXPECT_EQ(ErrorOfErase(true), 0);

    Fault([](mmc::Faults& faults) { faults.eraseFails = true; });
    EXPECT_EQ(ErrorOfErase(true), Number(drive::hresult::kEraseRefused));
}

// None of the steps that end a recording may fail unnoticed.
TEST_P(RefusedCommandTest, ARecordingThatIsNotEndedIsNoSuccess)
{
    constexpr int kSynchronise = 0x35;
    constexpr int kReserveTrack = 0x53;
    constexpr int kCloseTrackSession = 0x5B;
    for (const int command : {kSynchronise, kReserveTrack, kCloseTrackSession}) {
        Insert(0x1B);
        Refuse(command);
        EXPECT_NE(ErrorOfWrite(OrderOf(kRecordedSectors)), 0) << command;
        Fault([](mmc::Faults& faults) { faults = {}; });
    }
    expectedViolations = emulated.Violations(); // a disc without SYNCHRONIZE CACHE is taken out
}

} // namespace velmora::test
