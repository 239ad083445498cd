// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/mastering/DataBench.h"

#include "drive/PublishedCodes.h"
#include "tests/platform/mastering/ErrorNumbers.h"

#include <array>
#include <functional>

namespace velmora::test {

using drive::DiscState;
using drive::IMAPI_MEDIA_PHYSICAL_TYPE;
using DiscFormatDataTest = DataBench;

namespace {

constexpr qint32 kSpeedAdjusted = 11141124;
constexpr qint32 kRotationAdjusted = 11141125;
constexpr qint32 kBothAdjusted = 11141126;

/// Everything that asks about the disc.
const std::vector<std::function<void(imapi::IDiscFormat2Data&)>>& Questions()
{
    using imapi::IDiscFormat2Data;
    static const std::vector<std::function<void(IDiscFormat2Data&)>> questions {
        [](IDiscFormat2Data& writer) { writer.CurrentMediaStatus(); },
        [](IDiscFormat2Data& writer) { writer.CurrentPhysicalMediaType(); },
        [](IDiscFormat2Data& writer) { writer.MediaHeuristicallyBlank(); },
        [](IDiscFormat2Data& writer) { writer.FreeSectorsOnMedia(); },
        [](IDiscFormat2Data& writer) { writer.TotalSectorsOnMedia(); },
        [](IDiscFormat2Data& writer) { writer.SupportedWriteSpeeds(); },
        [](IDiscFormat2Data& writer) { writer.CurrentWriteSpeed(); },
        [](IDiscFormat2Data& writer) { writer.SetWriteSpeed(-1, false); },
        [](IDiscFormat2Data& writer) { writer.MultisessionInterfaces(); },
    };
    return questions;
}

} // namespace

TEST_F(DiscFormatDataTest, ANewWriterHasNoNameAndTheDefaults)
{
    const imapi::DiscFormat2DataRef fresh = mastering->CreateDiscFormat2Data();
    EXPECT_EQ(fresh->Recorder(), nullptr);
    EXPECT_EQ(fresh->ClientName(), QString());
    EXPECT_FALSE(fresh->ForceMediaToBeClosed());
    EXPECT_FALSE(fresh->ForceOverwrite());
}

TEST_F(DiscFormatDataTest, WithoutARecorderNothingIsAnswered)
{
    const imapi::DiscFormat2DataRef fresh = mastering->CreateDiscFormat2Data();
    for (std::size_t i = 0; i < Questions().size(); ++i) {
        EXPECT_EQ(ErrorNumberOf([&] { Questions()[i](*fresh); }), kRecorderRequired) << i;
    }
    EXPECT_EQ(ErrorNumberOf([&] { fresh->RequestedWriteSpeed(); }), kRecorderRequired);
    EXPECT_EQ(ErrorNumberOf([&] { fresh->CurrentRotationTypeIsPureCAV(); }), kRecorderRequired);
    EXPECT_EQ(ErrorNumberOf([&] { fresh->Write(Sectors(1)); }), kRecorderRequired);
}

TEST_F(DiscFormatDataTest, AnEmptyRecorderIsAnEmptyPointer)
{
    EXPECT_EQ(ErrorNumberOf([&] { writer->SetRecorder(nullptr); }), seen::kPointer);
    EXPECT_EQ(ErrorNumberOf([&] { writer->IsRecorderSupported(nullptr); }), seen::kPointer);
    EXPECT_EQ(ErrorNumberOf([&] { writer->IsCurrentMediaSupported(nullptr); }), seen::kPointer);
    EXPECT_EQ(writer->Recorder(), recorder);
}

TEST_F(DiscFormatDataTest, ARecorderThatIsBoundToNothingFails)
{
    const imapi::RecorderRef unbound = mastering->CreateDiscRecorder();
    EXPECT_EQ(ErrorNumberOf([&] { writer->IsRecorderSupported(unbound); }), seen::kFail);
    EXPECT_EQ(ErrorNumberOf([&] { writer->IsCurrentMediaSupported(unbound); }), seen::kFail);
}

TEST_F(DiscFormatDataTest, ABadClientNameIsRefusedAndTheOldOneStays)
{
    for (const QString& name : {QString(), u"a/b"_s, QString(64, u'x')}) {
        EXPECT_EQ(ErrorNumberOf([&] { writer->SetClientName(name); }), kClientNameNotValid);
    }
    EXPECT_EQ(writer->ClientName(), u"Tamsel"_s);
}

TEST_F(DiscFormatDataTest, ADriveIsSupportedThatRecordsAnyDisc)
{
    for (const qint32 profile : {9, 10, 17, 18, 19, 20, 21, 22, 26, 27, 42, 43, 65, 66, 67}) {
        drive->facts.profiles = {8, 16, profile};
        EXPECT_TRUE(writer->IsRecorderSupported(Bound())) << profile;
    }
    for (const QList<qint32>& profiles :
        {QList<qint32> {}, QList<qint32> {8, 16, 64, 1, 2, 65535}}) {
        drive->facts.profiles = profiles;
        EXPECT_FALSE(writer->IsRecorderSupported(Bound()));
    }
}

TEST_F(DiscFormatDataTest, ADiscIsSupportedByItsKindWhateverIsOnIt)
{
    struct Row {
        qint32 profile;
        DiscState state;
        bool isSupported;
    };
    const std::array rows {
        Row {9, DiscState::Blank, true},
        Row {9, DiscState::Appendable, true},
        Row {9, DiscState::Closed, true},
        Row {18, DiscState::Overwritable, true},
        Row {9, DiscState::Unsupported, false},
        Row {8, DiscState::Closed, false},
        Row {16, DiscState::Closed, false},
        Row {64, DiscState::Closed, false},
        Row {65535, DiscState::Blank, false},
        Row {0, DiscState::None, false},
    };
    for (const Row& row : rows) {
        drive->disc = DiscOf(row.profile, row.state);
        EXPECT_EQ(writer->IsCurrentMediaSupported(recorder), row.isSupported) << row.profile;
    }
}

TEST_F(DiscFormatDataTest, NoDiscIsSupportedInADriveThatOnlyReads)
{
    drive->facts.profiles = {8, 16};
    EXPECT_FALSE(writer->IsCurrentMediaSupported(Bound()));
}

TEST_F(DiscFormatDataTest, AnEmptyTrayHasTypeAndStatusZeroAndNothingElse)
{
    drive->disc = {};
    EXPECT_EQ(writer->CurrentPhysicalMediaType(), IMAPI_MEDIA_PHYSICAL_TYPE::Unknown);
    EXPECT_EQ(writer->CurrentMediaStatus(), 0);
    EXPECT_EQ(writer->MultisessionInterfaces().size(), 1);
    EXPECT_EQ(ErrorNumberOf([&] { writer->MediaHeuristicallyBlank(); }), kNoMedia);
    EXPECT_EQ(ErrorNumberOf([&] { writer->SupportedWriteSpeeds(); }), kNoMedia);
    EXPECT_EQ(ErrorNumberOf([&] { writer->CurrentWriteSpeed(); }), kNoMedia);
    EXPECT_EQ(ErrorNumberOf([&] { writer->SetWriteSpeed(-1, false); }), kNoMedia);
    EXPECT_EQ(ErrorNumberOf([&] { writer->FreeSectorsOnMedia(); }), kNoMedia);
    EXPECT_EQ(ErrorNumberOf([&] { writer->TotalSectorsOnMedia(); }), kNoMedia);
}

TEST_F(DiscFormatDataTest, AFailureOfTheDriveReachesEveryQuestion)
{
    for (std::size_t i = 0; i < Questions().size(); ++i) {
        drive->Fail("Examine", {drive::hresult::kBecomingReady});
        EXPECT_EQ(ErrorNumberOf([&] { Questions()[i](*writer); }), kNotReady) << i;
    }
    drive->Fail("Examine", {drive::hresult::kBecomingReady});
    EXPECT_EQ(ErrorNumberOf([&] { writer->IsCurrentMediaSupported(recorder); }), kNotReady);
}

TEST_F(DiscFormatDataTest, TheStatusIsASumOfBits)
{
    struct Row {
        DiscState state;
        std::function<void(drive::DiscInfo&)> set;
        qint32 status;
    };
    const std::array rows {
        Row {DiscState::Blank, [](auto&) {}, 0x2},
        Row {DiscState::Appendable, [](auto&) {}, 0x4},
        Row {DiscState::Appendable, [](auto& disc) { disc.canStayOpen = false; }, 0xC},
        Row {DiscState::Appendable, [](auto& disc) { disc.lastSessionOpen = true; }, 0x1004},
        Row {DiscState::Closed, [](auto&) {}, 0x4000},
        Row {DiscState::Closed, [](auto& disc) { disc.erasable = true; }, 0x4800},
        Row {DiscState::Closed, [](auto& disc) { disc.damaged = true; }, 0x4400},
        Row {DiscState::Overwritable, [](auto&) {}, 0x1},
        Row {DiscState::Overwritable, [](auto& disc) { disc.writeProtected = true; }, 0x2001},
        Row {DiscState::Unsupported, [](auto&) {}, 0x8000},
    };
    for (const Row& row : rows) {
        drive->disc = DiscOf(9, row.state);
        row.set(drive->disc);
        clock.Pause(2);
        EXPECT_EQ(writer->CurrentMediaStatus(), row.status);
    }
}

TEST_F(DiscFormatDataTest, QuestionsInARowCostOneLook)
{
    for (const auto& question : Questions()) {
        question(*writer);
    }
    EXPECT_EQ(drive->Calls(), "[Examine]");

    clock.Pause(1.5);
    writer->CurrentMediaStatus();
    EXPECT_EQ(drive->Calls(), "");
    clock.Pause(0.5);
    writer->CurrentMediaStatus();
    EXPECT_EQ(drive->Calls(), "[Examine]");
}

TEST_F(DiscFormatDataTest, TheQuestionForASupportedDiscAlwaysLooksAnew)
{
    writer->IsCurrentMediaSupported(recorder);
    writer->IsCurrentMediaSupported(recorder);
    EXPECT_EQ(drive->Calls(), "[Examine][Examine]");
    writer->CurrentMediaStatus();
    EXPECT_EQ(drive->Calls(), "");
}

TEST_F(DiscFormatDataTest, ATrayThatMovedMakesTheNextLookANewOne)
{
    writer->CurrentMediaStatus();
    recorder->EjectMedia();
    writer->CurrentMediaStatus();
    recorder->CloseTray();
    writer->CurrentMediaStatus();
    EXPECT_EQ(drive->Calls(), "[Examine][Eject][Examine][CloseTray][Examine]");
}

TEST_F(DiscFormatDataTest, ALookThatFailedIsMadeAgain)
{
    drive->Fail("Examine", {drive::hresult::kBecomingReady, 0});
    ErrorNumberOf([&] { writer->CurrentMediaStatus(); });
    EXPECT_EQ(writer->CurrentMediaStatus(), 0x2);
}

TEST_F(DiscFormatDataTest, SpeedsComeDescendingAndOnce)
{
    drive->disc.writeSpeeds = {1200, 3600, 2400, 3600, 1200};
    EXPECT_EQ(writer->SupportedWriteSpeeds(), (QList<quint32> {3600, 2400, 1200}));
}

TEST_F(DiscFormatDataTest, ADriveThatNamesNoSpeedHasTheSingleSpeedOfTheDisc)
{
    for (const auto& [profile, single] :
        {std::pair {9, 75U}, std::pair {27, 680U}, std::pair {65, 2195U}}) {
        drive->disc = DiscOf(profile, DiscState::Blank);
        drive->disc.writeSpeeds = {};
        clock.Pause(2);
        EXPECT_EQ(writer->SupportedWriteSpeeds(), QList<quint32> {single});
    }
}

TEST_F(DiscFormatDataTest, TheFastestSpeedIsTakenUntilOneIsAskedFor)
{
    EXPECT_EQ(writer->RequestedWriteSpeed(), -1);
    EXPECT_EQ(writer->CurrentWriteSpeed(), 3600);
    EXPECT_FALSE(writer->CurrentRotationTypeIsPureCAV());
}

TEST_F(DiscFormatDataTest, ASpeedBecomesTheNearestSupportedOne)
{
    struct Row {
        qint32 requested;
        qint32 success;
        qint32 current;
    };
    const std::array rows {
        Row {-1, 0, 3600},
        Row {2400, 0, 2400},
        Row {2500, kSpeedAdjusted, 2400},
        Row {1800, kSpeedAdjusted, 1200}, // halfway: the slower one
        Row {100'000, kSpeedAdjusted, 3600},
        Row {4, kSpeedAdjusted, 1200}, // a bare multiple
        Row {0, kSpeedAdjusted, 1200},
        Row {-5, kSpeedAdjusted, 1200},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(writer->SetWriteSpeed(row.requested, false), row.success) << row.requested;
        EXPECT_EQ(writer->RequestedWriteSpeed(), row.requested);
        EXPECT_EQ(writer->CurrentWriteSpeed(), row.current) << row.requested;
    }
}

TEST_F(DiscFormatDataTest, PureCavIsNeverGranted)
{
    EXPECT_EQ(writer->SetWriteSpeed(2400, true), kRotationAdjusted);
    EXPECT_EQ(writer->SetWriteSpeed(-1, true), kRotationAdjusted);
    EXPECT_EQ(writer->SetWriteSpeed(2500, true), kBothAdjusted);
    EXPECT_FALSE(writer->CurrentRotationTypeIsPureCAV());
}

TEST_F(DiscFormatDataTest, BlankIsWhatTheDriveTakesForBlank)
{
    EXPECT_TRUE(writer->MediaHeuristicallyBlank());
    drive->disc = DiscOf(18, DiscState::Overwritable);
    clock.Pause(2);
    EXPECT_FALSE(writer->MediaHeuristicallyBlank());
}

TEST_F(DiscFormatDataTest, EveryProfileStandsForItsKindOfDisc)
{
    struct Row {
        qint32 profile;
        qint32 type;
    };
    const std::array rows {
        Row {8, 1},
        Row {9, 2},
        Row {10, 3},
        Row {16, 4},
        Row {17, 9},
        Row {18, 5},
        Row {19, 10},
        Row {20, 10},
        Row {21, 11},
        Row {22, 11},
        Row {26, 7},
        Row {27, 6},
        Row {42, 13},
        Row {43, 8},
        Row {64, 17},
        Row {65, 18},
        Row {66, 18},
        Row {67, 19},
        Row {2, 12},
        Row {0, 0},
        Row {1, 0},
        Row {3, 0},
        Row {32, 0},
        Row {80, 0},
        Row {65535, 0},
    };
    for (const Row& row : rows) {
        drive->disc = DiscOf(row.profile, DiscState::Closed);
        clock.Pause(2);
        EXPECT_EQ(static_cast<qint32>(writer->CurrentPhysicalMediaType()), row.type) << row.profile;
    }
}

} // namespace velmora::test
