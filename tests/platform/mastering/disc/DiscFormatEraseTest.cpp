// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/mastering/RecorderBench.h"

#include "drive/PublishedCodes.h"
#include "tests/platform/mastering/ErrorNumbers.h"

#include <vector>

namespace velmora::test {

using drive::DiscState;

namespace {

class DiscFormatEraseTest : public RecorderBench {
protected:
    DiscFormatEraseTest()
    {
        PutDisc(10);
        eraser->SetRecorder(recorder);
        eraser->SetClientName(u"fnErase_"_s);
    }

    void PutDisc(qint32 profile)
    {
        drive->disc = DiscOf(profile, DiscState::Closed);
        drive->disc.erasable = true;
    }
    qint32 NumberOfErase()
    {
        return ErrorNumberOf([this] { eraser->EraseMedia(); });
    }

    imapi::RecorderRef recorder = Bound();
    imapi::DiscFormat2EraseRef eraser = mastering->CreateDiscFormat2Erase();
};

} // namespace

TEST_F(DiscFormatEraseTest, AQuickEraseLocksErasesAndUnlocks)
{
    EXPECT_FALSE(eraser->FullErase());
    eraser->EraseMedia();
    EXPECT_EQ(drive->Calls(), "[Lock(force)][Examine][Erase][Examine][Unlock]");
}

TEST_F(DiscFormatEraseTest, AnEraseIsCancelledByItsHandler)
{
    drive->eraseReports = {{0, 90}, {1, 90}};
    eraser->OnUpdate([this](qint32 elapsed, qint32) {
        if (elapsed == 1) {
            eraser->CancelErase();
        }
    });
    EXPECT_EQ(NumberOfErase(), drive::hresult::kCancelled);
    EXPECT_EQ(drive->Calls(), "[Lock(force)][Examine][Erase][Unlock]");
    eraser->OnUpdate({});
    EXPECT_EQ(NumberOfErase(), 0) << "the next one is another one";
}

TEST_F(DiscFormatEraseTest, TheWaitForADiscIsCancelledToo)
{
    drive->Fail("Examine", {drive::hresult::kBecomingReady, drive::hresult::kBecomingReady});
    eraser->OnUpdate([this](qint32, qint32) { eraser->CancelErase(); });
    EXPECT_EQ(NumberOfErase(), drive::hresult::kCancelled);
    EXPECT_EQ(drive->Calls(), "[Lock(force)][Examine][Unlock]");
}

TEST_F(DiscFormatEraseTest, AFullEraseIsAskedFor)
{
    eraser->SetFullErase(true);
    EXPECT_TRUE(eraser->FullErase());
    eraser->EraseMedia();
    EXPECT_EQ(drive->Calls(), "[Lock(force)][Examine][Erase(full)][Examine][Unlock]");
}

TEST_F(DiscFormatEraseTest, ErasableKindsOfDiscAreSupported)
{
    for (const qint32 profile : {10, 18, 19, 20, 26, 42, 67}) {
        PutDisc(profile);
        EXPECT_TRUE(eraser->IsCurrentMediaSupported(recorder)) << profile;
    }
    for (const qint32 profile : {8, 9, 16, 17, 21, 27, 43, 64, 65, 2, 65535}) {
        PutDisc(profile);
        EXPECT_FALSE(eraser->IsCurrentMediaSupported(recorder)) << profile;
    }
}

TEST_F(DiscFormatEraseTest, AnEmptyTrayIsNotSupportedAndNoError)
{
    drive->disc = {};
    EXPECT_FALSE(eraser->IsCurrentMediaSupported(recorder));
    EXPECT_EQ(NumberOfErase(), kNoMedia);
}

TEST_F(DiscFormatEraseTest, TheQuestionFailsWithTheDriveOrWithoutARecorder)
{
    drive->Fail("Examine", {drive::hresult::kBecomingReady});
    EXPECT_EQ(ErrorNumberOf([&] { eraser->IsCurrentMediaSupported(recorder); }), -1062600187);
    EXPECT_EQ(ErrorNumberOf([&] { eraser->IsCurrentMediaSupported(nullptr); }), seen::kPointer);
}

TEST_F(DiscFormatEraseTest, OneRecorderAtATime)
{
    EXPECT_EQ(ErrorNumberOf([&] { eraser->SetRecorder(recorder); }), kOneRecorderOnly);
    eraser->SetRecorder(nullptr);
    EXPECT_EQ(eraser->Recorder(), nullptr);
    EXPECT_EQ(NumberOfErase(), kRecorderRequired);
    eraser->SetRecorder(recorder);
    EXPECT_EQ(eraser->Recorder(), recorder);
}

TEST_F(DiscFormatEraseTest, AnEraserNeedsAGoodName)
{
    EXPECT_EQ(ErrorNumberOf([&] { eraser->SetClientName(u"é"_s); }), kEraseClientNameNotValid);
    EXPECT_EQ(eraser->ClientName(), u"fnErase_"_s);

    const imapi::DiscFormat2EraseRef nameless = mastering->CreateDiscFormat2Erase();
    nameless->SetRecorder(recorder);
    EXPECT_EQ(ErrorNumberOf([&] { nameless->EraseMedia(); }), kEraseClientNameNotValid);
}

TEST_F(DiscFormatEraseTest, DiscsThatCantBeErasedAreRefused)
{
    PutDisc(9);
    EXPECT_EQ(NumberOfErase(), kEraseMediaNotSupported);
    PutDisc(10);
    drive->disc.erasable = false;
    EXPECT_EQ(NumberOfErase(), kNotErasable);
    EXPECT_EQ(drive->Count("Erase"), 0);
}

TEST_F(DiscFormatEraseTest, WhyADiscIsNotSupportedIsTold)
{
    const auto why
        = [this] { return ErrorNumberOf([this] { eraser->RequireSupportedMedia(recorder); }); };
    EXPECT_EQ(why(), 0);
    drive->disc.erasable = false;
    EXPECT_EQ(why(), kNotErasable);
    PutDisc(9);
    EXPECT_EQ(why(), kEraseMediaNotSupported);
    drive->disc = {};
    EXPECT_EQ(why(), kNoMedia);
    drive->Fail("Examine", {drive::hresult::kRecorderLocked});
    EXPECT_EQ(why(), drive::hresult::kRecorderLocked);
    EXPECT_EQ(ErrorNumberOf([&] { eraser->RequireSupportedMedia(nullptr); }), seen::kPointer);
}

TEST_F(DiscFormatEraseTest, ADiscThatSpinsUpIsWaitedForAndErased)
{
    using namespace drive::hresult;
    drive->Fail("Examine", {kBecomingReady, kMediaBusy, kBecomingReady});
    std::vector<std::pair<qint32, qint32>> events;
    eraser->OnUpdate(
        [&](qint32 elapsed, qint32 estimated) { events.emplace_back(elapsed, estimated); });
    const double start = clock.Timer();
    EXPECT_EQ(NumberOfErase(), 0);
    EXPECT_EQ(clock.Timer() - start, 3);
    EXPECT_EQ(drive->Count("Erase"), 1);
    const std::vector<std::pair<qint32, qint32>> waited {{0, 0}, {1, 0}, {2, 0}};
    EXPECT_EQ(events, waited);
}

TEST_F(DiscFormatEraseTest, ADiscThatNeverGetsReadyIsGivenUpAfterAMinute)
{
    for (int i = 0; i < 200; ++i) {
        drive->Fail("Examine", {drive::hresult::kBecomingReady});
    }
    const double start = clock.Timer();
    EXPECT_EQ(NumberOfErase(), drive::hresult::kBecomingReady);
    EXPECT_EQ(clock.Timer() - start, 60);
    EXPECT_EQ(drive->Count("Erase"), 0);
    EXPECT_EQ(drive->Count("Unlock"), 1);
}

TEST_F(DiscFormatEraseTest, ADriveThatErasesNothingIsRefused)
{
    drive->facts.profiles = {8, 9, 27};
    eraser->SetRecorder(nullptr);
    eraser->SetRecorder(Bound());
    EXPECT_EQ(NumberOfErase(), kEraseRecorderNotSupported);
}

TEST_F(DiscFormatEraseTest, ADiscThatIsNotErasedAfterwardsIsAFailure)
{
    drive->erasesNothing = true;
    for (const qint32 profile : {10, 18, 19, 20, 26, 67}) {
        PutDisc(profile);
        EXPECT_EQ(NumberOfErase(), kEraseUnexpectedResponse) << profile;
    }
    PutDisc(26);
    drive->disc.state = DiscState::Overwritable;
    EXPECT_EQ(NumberOfErase(), kEraseUnexpectedResponse);
}

// An empty drive isn't told to erase its disc once more, and fully.
TEST_F(DiscFormatEraseTest, ADiscThatIsTakenOutMeanwhileIsMissed)
{
    drive->erasesNothing = true;
    drive->eraseReports = {{1, 2}};
    PutDisc(10);
    eraser->OnUpdate([this](qint32, qint32) { drive->disc = {}; });
    EXPECT_EQ(NumberOfErase(), drive::hresult::kNoMedia);
}

TEST_F(DiscFormatEraseTest, ADiscThatStaysOverwritableIsErasedWhenNothingIsLeftOnIt)
{
    drive->erasesNothing = true;
    PutDisc(26);
    drive->disc.state = DiscState::Overwritable;
    drive->disc.heuristicallyBlank = true;
    EXPECT_EQ(NumberOfErase(), 0);
}

TEST_F(DiscFormatEraseTest, WhatTheDriveSaysOfAFailureIsPassedOn)
{
    for (const qint32 code : {drive::hresult::kNotErasable,
             drive::hresult::kEraseRefused,
             drive::hresult::kEraseTooLong,
             drive::hresult::kEraseUnexpectedResponse,
             drive::hresult::kSpinUpFailed,
             drive::hresult::kRecorderLocked}) {
        drive->Fail("Erase", {code});
        EXPECT_EQ(NumberOfErase(), code);
    }
}

TEST_F(DiscFormatEraseTest, EventsTellTheTimesAndTheirErrorsAreDropped)
{
    drive->eraseReports = {{0, 60}, {30, 61}};
    std::vector<std::pair<qint32, qint32>> events;
    eraser->OnUpdate([&](qint32 elapsed, qint32 estimated) {
        events.emplace_back(elapsed, estimated);
        throw runtime::RuntimeError(11);
    });
    EXPECT_EQ(NumberOfErase(), 0);
    EXPECT_EQ(events, drive->eraseReports);
}

TEST_F(DiscFormatEraseTest, NothingCanBeChangedWhileAnEraseRuns)
{
    drive->eraseReports = {{0, 60}};
    std::vector<qint32> numbers;
    eraser->OnUpdate([&](qint32, qint32) {
        numbers = {
            ErrorNumberOf([&] { eraser->SetRecorder(nullptr); }),
            ErrorNumberOf([&] { eraser->SetClientName(u"x"_s); }),
            ErrorNumberOf([&] { eraser->SetFullErase(true); }),
            ErrorNumberOf([&] { eraser->IsCurrentMediaSupported(recorder); }),
            ErrorNumberOf([&] { eraser->EraseMedia(); }),
        };
    });
    eraser->EraseMedia();
    EXPECT_EQ(numbers, std::vector<qint32>(5, kEraseInProgress));
}

TEST_F(DiscFormatEraseTest, ItIsKnownWhetherTheDriveBegan)
{
    EXPECT_FALSE(eraser->HasBegun());
    drive->Fail("Erase", {drive::hresult::kEraseUnexpectedResponse});
    EXPECT_NE(NumberOfErase(), 0);
    EXPECT_TRUE(eraser->HasBegun());
    PutDisc(9);
    drive->disc.erasable = false;
    EXPECT_NE(NumberOfErase(), 0);
    EXPECT_FALSE(eraser->HasBegun());
    PutDisc(10);
    EXPECT_EQ(NumberOfErase(), 0);
    EXPECT_TRUE(eraser->HasBegun());
}

} // namespace velmora::test
