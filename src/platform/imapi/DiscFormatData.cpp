// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imapi/DiscFormatData.h"

#include "image/ImagePlan.h"
#include "imapi/ClientName.h"
#include "imapi/DiscState.h"
#include "imapi/MediaProfiles.h"
#include "imapi/Multisession.h"
#include "imapi/WriteTerms.h"
#include "runtime/ResumeNext.h"

#include <QScopedValueRollback>

#include <utility>

namespace velmora::imapi {

DiscFormatData::DiscFormatData(std::shared_ptr<DriveSide> side)
    : side_(std::move(side))
{
}

void DiscFormatData::RequireIdle() const
{
    if (isWriting_) {
        throw PublishedError(hresult::kWriteInProgress);
    }
}

void DiscFormatData::SetRecorder(const RecorderRef& recorder)
{
    RequireIdle();
    OwnRecorder(recorder, hresult::kPointer);
    recorder_ = recorder;
}

void DiscFormatData::SetClientName(const QString& name)
{
    RequireIdle();
    if (!IsClientName(name)) {
        throw PublishedError(hresult::kClientNameNotValid);
    }
    clientName_ = name;
}

bool DiscFormatData::IsRecorderSupported(const RecorderRef& recorder) const
{
    return CanRecord(OwnRecorder(recorder, hresult::kPointer).SupportedProfiles());
}

bool DiscFormatData::IsCurrentMediaSupported(const RecorderRef& recorder)
{
    DiscRecorder& own = OwnRecorder(recorder, hresult::kPointer);
    RequireIdle();
    return CanRecord(own.SupportedProfiles()) && IsRecordableDisc(Keep(own.LookAnew()));
}

DiscRecorder& DiscFormatData::IdleRecorder() const
{
    DiscRecorder& recorder = OwnRecorder(recorder_, hresult::kRecorderRequired);
    RequireIdle();
    return recorder;
}

/// Remembers the disc, for images that are made from now on.
const DiscInfo& DiscFormatData::Keep(const DiscInfo& disc)
{
    side_->lastQueriedDisc.reset();
    if (disc.state != DiscState::None) {
        side_->lastQueriedDisc = DiscFacts {MediaTypeOf(disc), RoomOn(disc)};
    }
    return disc;
}

const DiscInfo& DiscFormatData::Look() { return Keep(IdleRecorder().Look()); }

const DiscInfo& DiscFormatData::LookAtMedia()
{
    const DiscInfo& disc = Look();
    if (disc.state == DiscState::None) {
        throw PublishedError(hresult::kNoMedia);
    }
    return disc;
}

qint32 DiscFormatData::CurrentMediaStatus() { return MediaStatusOf(Look()); }

IMAPI_MEDIA_PHYSICAL_TYPE DiscFormatData::CurrentPhysicalMediaType() { return MediaTypeOf(Look()); }

bool DiscFormatData::MediaHeuristicallyBlank() { return LookAtMedia().heuristicallyBlank; }

qint64 DiscFormatData::FreeSectorsOnMedia() { return RoomOn(LookAtMedia()); }

qint64 DiscFormatData::TotalSectorsOnMedia() { return LookAtMedia().totalSectors; }

QList<quint32> DiscFormatData::SupportedWriteSpeeds() { return SpeedsOf(LookAtMedia()); }

qint32 DiscFormatData::CurrentWriteSpeed()
{
    return static_cast<qint32>(NearestSpeed(SupportedWriteSpeeds(), requestedSpeed_));
}

qint32 DiscFormatData::RequestedWriteSpeed()
{
    IdleRecorder();
    return requestedSpeed_;
}

bool DiscFormatData::CurrentRotationTypeIsPureCAV()
{
    IdleRecorder();
    return false;
}

qint32 DiscFormatData::SetWriteSpeed(qint32 speed, bool rotationTypeIsPureCAV)
{
    const quint32 given = NearestSpeed(SupportedWriteSpeeds(), speed);
    requestedSpeed_ = speed;
    const bool isAdjusted = speed != -1 && static_cast<qint64>(given) != speed;
    if (isAdjusted && rotationTypeIsPureCAV) {
        return hresult::kBothAdjusted;
    }
    if (rotationTypeIsPureCAV) {
        return hresult::kRotationAdjusted;
    }
    return isAdjusted ? hresult::kSpeedAdjusted : hresult::kOk;
}

void DiscFormatData::SetForceMediaToBeClosed(bool closed)
{
    RequireIdle();
    closesMedia_ = closed;
}

void DiscFormatData::SetForceOverwrite(bool overwrite)
{
    RequireIdle();
    overwrites_ = overwrite;
}

QList<MultisessionRef> DiscFormatData::MultisessionInterfaces()
{
    const DiscInfo& disc = Look();
    const DiscRecorder& recorder = IdleRecorder();
    return {std::make_shared<Multisession>(recorder.BoundDrive(), disc)};
}

void DiscFormatData::CheckStream(const IStream* data) const
{
    if (!data) {
        throw PublishedError(hresult::kPointer);
    }
    if (clientName_.isEmpty()) {
        throw PublishedError(hresult::kClientNameNotValid);
    }
    const quint64 bytes = data->Size();
    if (bytes == 0 || bytes % image::kSectorSize != 0) {
        throw PublishedError(hresult::kStreamNotSupported);
    }
}

WriteOrder DiscFormatData::OrderFor(const DiscInfo& disc, const StreamRef& data) const
{
    const auto sectors = static_cast<qint64>(data->Size() / image::kSectorSize);
    RequireWritable(disc, sectors, Overwrite(overwrites_));
    WriteOrder order;
    order.sectors = sectors;
    order.source = [stream = data.get()](std::span<std::byte> out) { ReadAll(*stream, out); };
    if (requestedSpeed_ != -1) {
        order.speed = NearestSpeed(SpeedsOf(disc), requestedSpeed_);
    }
    order.closeDisc = MustClose(disc, sectors, closesMedia_);
    return order;
}

void DiscFormatData::Write(const StreamRef& data)
{
    DiscRecorder& recorder = IdleRecorder();
    CheckStream(data.get());
    if (!CanRecord(recorder.SupportedProfiles())) {
        throw PublishedError(hresult::kRecorderNotSupported);
    }
    const QScopedValueRollback writing(isWriting_, true);
    const RecorderRef keptAlive = recorder_;
    const ExclusiveHold hold(recorder, clientName_);
    const WriteOrder order = OrderFor(Keep(recorder.LookAnew()), data);
    data->Seek(0);
    isCancelled_ = false;
    lastAction_.reset();
    const double begun = side_->clock.Timer();
    recorder.BoundDrive()->Write(
        order, [this, begun](const WriteProgress& progress) { return Report(progress, begun); });
}

bool DiscFormatData::Report(const WriteProgress& progress, double begun)
{
    const bool isNews
        = progress.action == WriteAction::WritingData || progress.action != lastAction_;
    lastAction_ = progress.action;
    const QScopedValueRollback inUpdate(isInUpdate_, true);
    if (isNews && handler_) {
        const double elapsed = side_->clock.Timer() - begun;
        runtime::ResumeNext([&] { handler_(EventArgsOf(progress, elapsed)); });
    }
    if (!isNews && waitHandler_) {
        runtime::ResumeNext(waitHandler_);
    }
    return !isCancelled_;
}

void DiscFormatData::CancelWrite()
{
    if (!isInUpdate_) {
        throw PublishedError(hresult::kWriteNotInProgress);
    }
    isCancelled_ = true;
}

void DiscFormatData::OnUpdate(DiscFormat2DataUpdate handler) { handler_ = std::move(handler); }

void DiscFormatData::OnWait(std::function<void()> handler) { waitHandler_ = std::move(handler); }

} // namespace velmora::imapi
