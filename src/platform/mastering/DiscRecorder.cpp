// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/DiscRecorder.h"

#include "mastering/ClientName.h"
#include "mastering/DiscState.h"
#include "runtime/ResumeNext.h"

#include <utility>

namespace velmora::mastering {

DiscRecorder::DiscRecorder(std::shared_ptr<DriveSide> side)
    : side_(std::move(side))
{
}

DiscRecorder::~DiscRecorder() { DropLock(); }

void DiscRecorder::InitializeDiscRecorder(const QString& uniqueId)
{
    DropLock();
    drive_.reset();
    ForgetLook();
    for (const auto& source : side_->sources) {
        if (drive::DriveRef drive = source->Open(uniqueId)) {
            facts_ = drive->Identify();
            drive_ = std::move(drive);
            return;
        }
    }
    const bool wasThere = side_->recorders.contains(uniqueId);
    throw drive::PublishedError(
        wasThere ? drive::hresult::kDeviceGone : drive::hresult::kInvalidArgument);
}

const drive::DriveRef& DiscRecorder::BoundDrive() const
{
    if (!drive_) {
        throw drive::PublishedError(drive::hresult::kFail);
    }
    return drive_;
}

const drive::DriveFacts& DiscRecorder::Facts() const
{
    BoundDrive();
    return facts_;
}

void DiscRecorder::EjectMedia()
{
    ForgetLook();
    BoundDrive()->Eject();
}

void DiscRecorder::CloseTray()
{
    ForgetLook();
    BoundDrive()->CloseTray();
}

void DiscRecorder::AcquireExclusiveAccess(bool force, const QString& clientName)
{
    const drive::DriveRef& drive = BoundDrive();
    if (!IsClientName(clientName)) {
        throw drive::PublishedError(drive::hresult::kInvalidArgument);
    }
    if (locks_ == 0) {
        drive->Lock(force);
    }
    ++locks_;
}

void DiscRecorder::ReleaseExclusiveAccess()
{
    const drive::DriveRef& drive = BoundDrive();
    if (locks_ == 0) {
        throw drive::PublishedError(drive::hresult::kFail);
    }
    if (--locks_ == 0) {
        drive->Unlock();
    }
}

void DiscRecorder::DropLock()
{
    if (std::exchange(locks_, 0) > 0) {
        runtime::ResumeNext([this] { drive_->Unlock(); });
    }
}

const drive::DiscInfo& DiscRecorder::LookAnew()
{
    ForgetLook();
    look_ = BoundDrive()->Examine();
    lookedAt_ = side_->clock.Timer();
    return look_;
}

const drive::DiscInfo& DiscRecorder::Look()
{
    constexpr double kFreshSeconds = 2;
    BoundDrive();
    const bool isFresh = lookedAt_ && side_->clock.Timer() - *lookedAt_ < kFreshSeconds;
    return isFresh ? look_ : LookAnew();
}

imapi::DiscFacts DiscRecorder::DiscInDrive()
{
    const drive::DiscInfo& disc = LookAnew();
    if (disc.state == drive::DiscState::None) {
        throw drive::PublishedError(drive::hresult::kNoMedia);
    }
    return {MediaTypeOf(disc), RoomOn(disc)};
}

ExclusiveHold::ExclusiveHold(DiscRecorder& recorder, const QString& clientName)
    : recorder_(recorder)
{
    recorder_.AcquireExclusiveAccess(true, clientName);
}

ExclusiveHold::~ExclusiveHold()
{
    recorder_.ForgetLook();
    runtime::ResumeNext([this] { recorder_.ReleaseExclusiveAccess(); });
}

DiscRecorder& OwnRecorder(const imapi::RecorderRef& recorder, qint32 whenEmpty)
{
    if (!recorder) {
        throw drive::PublishedError(whenEmpty);
    }
    auto* own = dynamic_cast<DiscRecorder*>(recorder.get());
    if (!own) {
        throw drive::PublishedError(drive::hresult::kInvalidArgument);
    }
    return *own;
}

} // namespace velmora::mastering
