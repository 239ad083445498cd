// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/disc/DiscRecorder.h"

#include "drive/PublishedCodes.h"
#include "mastering/disc/ClientName.h"
#include "runtime/ResumeNext.h"

#include <utility>

namespace velmora::mastering {

DiscRecorder::DiscRecorder(std::shared_ptr<MasteringContext> context)
    : context_(std::move(context))
{
}

DiscRecorder::~DiscRecorder() { DropLock(); }

void DiscRecorder::InitializeDiscRecorder(const QString& uniqueId)
{
    DropLock();
    drive_.reset();
    for (const auto& source : context_->sources) {
        if (drive::DriveRef drive = source->Open(uniqueId)) {
            drive_.emplace(std::move(drive), context_->clock);
            return;
        }
    }
    const bool wasThere = context_->recorders.contains(uniqueId);
    throw drive::PublishedError(
        wasThere ? drive::hresult::kDeviceGone : drive::hresult::kInvalidArgument);
}

void DiscRecorder::RequireDrive() const
{
    if (!drive_) {
        throw drive::PublishedError(drive::hresult::kFail);
    }
}

drive::BoundDrive& DiscRecorder::Drive()
{
    RequireDrive();
    return *drive_;
}

const drive::DriveFacts& DiscRecorder::Facts() const
{
    RequireDrive();
    return drive_->Facts();
}

void DiscRecorder::EjectMedia()
{
    Drive().ForgetLook();
    drive_->Hardware()->Eject();
}

void DiscRecorder::CloseTray()
{
    Drive().ForgetLook();
    drive_->Hardware()->CloseTray();
}

void DiscRecorder::AcquireExclusiveAccess(bool force, const QString& clientName)
{
    const drive::DriveRef& drive = Drive().Hardware();
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
    const drive::DriveRef& drive = Drive().Hardware();
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
        runtime::ResumeNext([this] { drive_->Hardware()->Unlock(); });
    }
}

ExclusiveHold::ExclusiveHold(imapi::IDiscRecorder2& recorder, const QString& clientName)
    : recorder_(recorder)
{
    recorder_.AcquireExclusiveAccess(true, clientName);
}

ExclusiveHold::~ExclusiveHold()
{
    runtime::ResumeNext([this] { recorder_.Drive().ForgetLook(); });
    runtime::ResumeNext([this] { recorder_.ReleaseExclusiveAccess(); });
}

imapi::IDiscRecorder2& Given(const imapi::RecorderRef& recorder, qint32 whenEmpty)
{
    if (!recorder) {
        throw drive::PublishedError(whenEmpty);
    }
    return *recorder;
}

} // namespace velmora::mastering
