// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/mastering/RecorderBench.h"

#include "drive/PublishedCodes.h"
#include "tests/platform/mastering/ErrorNumbers.h"

#include <functional>
#include <vector>

namespace velmora::test {

using imapi::IDiscRecorder2;
using DiscRecorderTest = RecorderBench;

namespace {

constexpr qint32 kLockedCode = drive::hresult::kRecorderLocked;

using Member = std::function<void(IDiscRecorder2&)>;

const std::vector<Member>& AllButInitialize()
{
    static const std::vector<Member> members {
        [](IDiscRecorder2& recorder) { recorder.ActiveDiscRecorder(); },
        [](IDiscRecorder2& recorder) { recorder.VendorId(); },
        [](IDiscRecorder2& recorder) { recorder.ProductId(); },
        [](IDiscRecorder2& recorder) { recorder.ProductRevision(); },
        [](IDiscRecorder2& recorder) { recorder.VolumeName(); },
        [](IDiscRecorder2& recorder) { recorder.DeviceCanLoadMedia(); },
        [](IDiscRecorder2& recorder) { recorder.LegacyDeviceNumber(); },
        [](IDiscRecorder2& recorder) { recorder.VolumePathNames(); },
        [](IDiscRecorder2& recorder) { recorder.SupportedProfiles(); },
        [](IDiscRecorder2& recorder) { recorder.EjectMedia(); },
        [](IDiscRecorder2& recorder) { recorder.CloseTray(); },
        [](IDiscRecorder2& recorder) { recorder.AcquireExclusiveAccess(false, u"Tamsel"_s); },
        [](IDiscRecorder2& recorder) { recorder.ReleaseExclusiveAccess(); },
        [](IDiscRecorder2& recorder) { recorder.Drive(); },
    };
    return members;
}

} // namespace

TEST_F(DiscRecorderTest, ABoundRecorderTellsWhatItsDriveSays)
{
    drive->facts = {.id = u"sr0"_s,
        .vendor = u"PIONEER"_s,
        .product = u"BD-RW   BDR-209D"_s,
        .revision = u"1.52"_s,
        .volumeName = u"/dev/disk/by-id/ata-PIONEER"_s,
        .canLoadMedia = true,
        .legacyNumber = 3,
        .paths = {u"/dev/sr3"_s},
        .profiles = {67, 9, 10}};
    const imapi::RecorderRef recorder = Bound();

    EXPECT_EQ(recorder->ActiveDiscRecorder(), u"sr0"_s);
    EXPECT_EQ(recorder->VendorId(), u"PIONEER"_s);
    EXPECT_EQ(recorder->ProductId(), u"BD-RW   BDR-209D"_s);
    EXPECT_EQ(recorder->ProductRevision(), u"1.52"_s);
    EXPECT_EQ(recorder->VolumeName(), u"/dev/disk/by-id/ata-PIONEER"_s);
    EXPECT_TRUE(recorder->DeviceCanLoadMedia());
    EXPECT_EQ(recorder->LegacyDeviceNumber(), 3);
    EXPECT_EQ(recorder->VolumePathNames(), QStringList {u"/dev/sr3"_s});
    EXPECT_EQ(recorder->SupportedProfiles(), (QList<qint32> {67, 9, 10}));
    EXPECT_EQ(drive->Calls(), ""); // all of it was asked for once, when it was bound
}

TEST_F(DiscRecorderTest, AnUnboundRecorderFailsAtEveryMember)
{
    const imapi::RecorderRef recorder = mastering->CreateDiscRecorder();
    for (std::size_t i = 0; i < AllButInitialize().size(); ++i) {
        EXPECT_EQ(ErrorNumberOf([&] { AllButInitialize()[i](*recorder); }), seen::kFail) << i;
    }
}

TEST_F(DiscRecorderTest, AnIdThatNoDriveHasIsRefusedAndUnbinds)
{
    const imapi::RecorderRef recorder = Bound();

    EXPECT_EQ(
        ErrorNumberOf([&] { recorder->InitializeDiscRecorder(u"sr9"_s); }), seen::kInvalidArgument);
    EXPECT_EQ(ErrorNumberOf([&] { recorder->ActiveDiscRecorder(); }), seen::kFail);
}

TEST_F(DiscRecorderTest, ADriveThatCantBeIdentifiedIsNotBound)
{
    drive->Fail("Identify", {drive::hresult::kAccessDenied, drive::hresult::kDeviceGone, 0});
    const imapi::RecorderRef recorder = mastering->CreateDiscRecorder();
    const auto bind = [&] { recorder->InitializeDiscRecorder(u"sr0"_s); };

    EXPECT_EQ(ErrorNumberOf(bind), seen::kAccessDenied);
    EXPECT_EQ(ErrorNumberOf(bind), kDeviceGone);
    EXPECT_EQ(ErrorNumberOf([&] { recorder->VendorId(); }), seen::kFail);
    EXPECT_EQ(ErrorNumberOf(bind), 0);
    EXPECT_EQ(recorder->ActiveDiscRecorder(), u"sr0"_s);
}

TEST_F(DiscRecorderTest, TheSourceThatKnowsTheIdGivesTheDrive)
{
    const auto other = std::make_shared<FakeDriveSource>();
    const auto virtualDrive = other->Plug(u"virtual:A"_s);
    virtualDrive->facts.vendor = u"VELMORA"_s;
    const auto both = mastering::MasteringOf({source, other}, clock);
    const imapi::RecorderRef recorder = both->CreateDiscRecorder();

    recorder->InitializeDiscRecorder(u"virtual:A"_s);

    EXPECT_EQ(recorder->VendorId(), u"VELMORA"_s);
    EXPECT_EQ(drive->Calls(), "");
}

TEST_F(DiscRecorderTest, TheTrayFollowsAndItsFailuresAreTold)
{
    const imapi::RecorderRef recorder = Bound();
    recorder->EjectMedia();
    recorder->CloseTray();
    EXPECT_EQ(drive->Calls(), "[Eject][CloseTray]");

    drive->Fail("Eject", {kLockedCode});
    drive->Fail("CloseTray", {drive::hresult::kFail});
    EXPECT_EQ(ErrorNumberOf([&] { recorder->EjectMedia(); }), kLocked);
    EXPECT_EQ(ErrorNumberOf([&] { recorder->CloseTray(); }), seen::kFail);
}

TEST_F(DiscRecorderTest, OnlyTheFirstAccessLocksAndOnlyTheLastReleaseUnlocks)
{
    const imapi::RecorderRef recorder = Bound();
    recorder->AcquireExclusiveAccess(false, u"Tamsel"_s);
    recorder->AcquireExclusiveAccess(true, u"fnErase_"_s);
    EXPECT_EQ(drive->Calls(), "[Lock]");

    recorder->ReleaseExclusiveAccess();
    EXPECT_EQ(drive->Calls(), "");
    recorder->ReleaseExclusiveAccess();
    EXPECT_EQ(drive->Calls(), "[Unlock]");
    EXPECT_EQ(ErrorNumberOf([&] { recorder->ReleaseExclusiveAccess(); }), seen::kFail);
}

TEST_F(DiscRecorderTest, ForceIsHandedOn)
{
    const imapi::RecorderRef recorder = Bound();
    recorder->AcquireExclusiveAccess(true, u"Tamsel"_s);
    EXPECT_EQ(drive->Calls(), "[Lock(force)]");
}

TEST_F(DiscRecorderTest, AnAccessThatWasRefusedCountsNothing)
{
    const imapi::RecorderRef recorder = Bound();
    drive->Fail("Lock", {drive::hresult::kAccessDenied, kLockedCode});

    const auto acquire = [&] { recorder->AcquireExclusiveAccess(false, u"Tamsel"_s); };
    EXPECT_EQ(ErrorNumberOf(acquire), seen::kAccessDenied);
    EXPECT_EQ(ErrorNumberOf(acquire), kLocked);
    EXPECT_EQ(ErrorNumberOf([&] { recorder->ReleaseExclusiveAccess(); }), seen::kFail);
    drive->Calls();

    EXPECT_EQ(ErrorNumberOf(acquire), 0);
    EXPECT_EQ(drive->Calls(), "[Lock]");
}

TEST_F(DiscRecorderTest, AClientNeedsAName)
{
    const imapi::RecorderRef recorder = Bound();
    const auto acquire = [&](const QString& name) {
        return ErrorNumberOf([&] { recorder->AcquireExclusiveAccess(false, name); });
    };
    for (const QString& name : {QString(), u"a/b"_s, u"été"_s, QString(64, u'x'), u"a\tb"_s}) {
        EXPECT_EQ(acquire(name), seen::kInvalidArgument) << name.toStdString();
    }
    for (const QString& name : {u"Tamsel"_s, u"fnErase_"_s, u"A z.0,9:;-_"_s, QString(63, u'x')}) {
        EXPECT_EQ(acquire(name), 0) << name.toStdString();
    }
}

TEST_F(DiscRecorderTest, TheLockGoesWithTheObject)
{
    imapi::RecorderRef recorder = Bound();
    recorder->AcquireExclusiveAccess(false, u"Tamsel"_s);
    recorder->AcquireExclusiveAccess(false, u"Tamsel"_s);
    recorder.reset();
    EXPECT_EQ(drive->Calls(), "[Lock][Unlock]");
}

TEST_F(DiscRecorderTest, TheLockGoesWhenAnotherDriveIsBound)
{
    source->Plug(u"sr1"_s);
    const imapi::RecorderRef recorder = Bound();
    recorder->AcquireExclusiveAccess(false, u"Tamsel"_s);
    recorder->InitializeDiscRecorder(u"sr1"_s);
    EXPECT_EQ(drive->Calls(), "[Lock][Unlock]");
}

} // namespace velmora::test
