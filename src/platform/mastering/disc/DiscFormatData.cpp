// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/disc/DiscFormatData.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "image/ImagePlan.h"
#include "mastering/base/DiscState.h"
#include "mastering/base/WriteTerms.h"
#include "mastering/comparison/DiscComparer.h"
#include "mastering/comparison/RecordingReader.h"
#include "mastering/comparison/WrittenTrack.h"
#include "mastering/disc/BurnMemory.h"
#include "mastering/disc/ClientName.h"
#include "mastering/disc/DiscRecorder.h"
#include "mastering/disc/Multisession.h"
#include "runtime/ResumeNext.h"

#include <QScopedValueRollback>

#include <utility>

namespace velmora::mastering {

DiscFormatData::DiscFormatData(std::shared_ptr<MasteringContext> context)
    : context_(std::move(context))
{
}

void DiscFormatData::RequireIdle() const
{
    if (isWriting_) {
        throw drive::PublishedError(drive::hresult::kWriteInProgress);
    }
}

void DiscFormatData::SetRecorder(const imapi::RecorderRef& recorder)
{
    RequireIdle();
    Given(recorder, drive::hresult::kPointer);
    recorder_ = recorder;
}

void DiscFormatData::SetClientName(const QString& name)
{
    RequireIdle();
    if (!IsClientName(name)) {
        throw drive::PublishedError(drive::hresult::kClientNameNotValid);
    }
    clientName_ = name;
}

bool DiscFormatData::IsRecorderSupported(const imapi::RecorderRef& recorder) const
{
    return drive::CanRecord(Given(recorder, drive::hresult::kPointer).SupportedProfiles());
}

bool DiscFormatData::IsCurrentMediaSupported(const imapi::RecorderRef& recorder)
{
    imapi::IDiscRecorder2& own = Given(recorder, drive::hresult::kPointer);
    RequireIdle();
    return drive::CanRecord(own.SupportedProfiles())
        && IsRecordableDisc(Keep(own.Drive().LookAnew()));
}

imapi::IDiscRecorder2& DiscFormatData::IdleRecorder() const
{
    imapi::IDiscRecorder2& recorder = Given(recorder_, drive::hresult::kRecorderRequired);
    RequireIdle();
    return recorder;
}

/// Remembers the disc, for images that are made from now on.
const drive::DiscInfo& DiscFormatData::Keep(const drive::DiscInfo& disc)
{
    context_->lastQueriedDisc.reset();
    if (disc.state != drive::DiscState::None) {
        context_->lastQueriedDisc = DiscFacts {MediaTypeOf(disc), RoomOn(disc)};
    }
    return disc;
}

const drive::DiscInfo& DiscFormatData::Look() { return Keep(IdleRecorder().Drive().Look()); }

const drive::DiscInfo& DiscFormatData::LookAtMedia()
{
    const drive::DiscInfo& disc = Look();
    if (disc.state == drive::DiscState::None) {
        throw drive::PublishedError(drive::hresult::kNoMedia);
    }
    return disc;
}

qint32 DiscFormatData::CurrentMediaStatus() { return MediaStatusOf(Look()); }

drive::IMAPI_MEDIA_PHYSICAL_TYPE DiscFormatData::CurrentPhysicalMediaType()
{
    return MediaTypeOf(Look());
}

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
        return drive::hresult::kBothAdjusted;
    }
    if (rotationTypeIsPureCAV) {
        return drive::hresult::kRotationAdjusted;
    }
    return isAdjusted ? drive::hresult::kSpeedAdjusted : drive::hresult::kOk;
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

QList<imapi::MultisessionRef> DiscFormatData::MultisessionInterfaces()
{
    const drive::DiscInfo& disc = Look();
    return {std::make_shared<Multisession>(recorder_->Drive().Hardware(), disc)};
}

void DiscFormatData::CheckStream(const imapi::IStream* data) const
{
    if (!data) {
        throw drive::PublishedError(drive::hresult::kPointer);
    }
    if (clientName_.isEmpty()) {
        throw drive::PublishedError(drive::hresult::kClientNameNotValid);
    }
    const quint64 bytes = data->Size();
    if (bytes == 0 || bytes % image::kSectorSize != 0) {
        throw drive::PublishedError(drive::hresult::kStreamNotSupported);
    }
}

drive::WriteOrder DiscFormatData::OrderFor(
    const drive::DiscInfo& disc, const imapi::StreamRef& data) const
{
    const auto sectors = static_cast<qint64>(data->Size() / image::kSectorSize);
    RequireWritable(disc, sectors, Overwrite(overwrites_));
    drive::WriteOrder order;
    order.sectors = sectors;
    order.source = [stream = data.get()](std::span<std::byte> out) { ReadAll(*stream, out); };
    if (requestedSpeed_ != imapi::kFastestWriteSpeed) {
        order.speed = NearestSpeed(SpeedsOf(disc), requestedSpeed_);
    }
    order.closeDisc = MustClose(disc, sectors, closesMedia_);
    return order;
}

void DiscFormatData::Write(const imapi::StreamRef& data)
{
    imapi::IDiscRecorder2& recorder = IdleRecorder();
    comparison_ = {};
    remarks_.clear();
    CheckStream(data.get());
    if (!drive::CanRecord(recorder.SupportedProfiles())) {
        throw drive::PublishedError(drive::hresult::kRecorderNotSupported);
    }
    const QScopedValueRollback writing(isWriting_, true);
    const imapi::RecorderRef keptAlive = recorder_;
    const ExclusiveHold hold(recorder, clientName_);
    const drive::WriteOrder order = OrderFor(Keep(recorder.Drive().LookAnew()), data);
    data->Seek(0);
    cancelledAt_.reset();
    lastAction_.reset();
    begun_ = context_->clock.Timer();
    try {
        WriteAndCompare(order, *data);
        if (IsCancelledInWrite()) {
            throw drive::PublishedError(drive::hresult::kCancelled);
        }
    } catch (const runtime::RuntimeError& failure) {
        RememberFailure(failure, order.sectors);
        throw;
    }
}

void DiscFormatData::WriteAndCompare(drive::WriteOrder order, imapi::IStream& data)
{
    drive::Drive& hardware = *recorder_->Drive().Hardware();
    const bool compares = !context_->care.comparesAfterWrite || context_->care.comparesAfterWrite();
    if (!compares && !context_->care.keepRecord) {
        hardware.Write(order, [this](const drive::WriteProgress& now) { return Report(now); });
        comparison_.end = imapi::ComparisonEnd::Unwanted;
        return;
    }
    WrittenTrack track(order.sectors,
        context_->care.keepRecord ? data.Files(records::BurnRecord::kMostFiles)
                                  : std::vector<imapi::FileExtent>());
    order.source = track.Watched(std::move(order.source));
    hardware.Write(order, [this, &track](const drive::WriteProgress& now) {
        track.Hear(now);
        return Report(now);
    });
    // The disc is written, whatever becomes of the comparison.
    comparison_.end = compares ? imapi::ComparisonEnd::Impossible : imapi::ComparisonEnd::Unwanted;
    if (compares && IsCancelledInWrite()) {
        comparison_ = {.end = imapi::ComparisonEnd::Stopped, .sectors = track.Sectors()};
    } else if (compares) {
        Compare(track, data);
    }
    Remember(track, data);
}

/// Too late for the drive, which has completed the disc, but not for what was to follow.
bool DiscFormatData::IsCancelledInWrite() const
{
    return cancelledAt_ && *cancelledAt_ < drive::WriteAction::Completed;
}

/// A burn is good even if it can't be recorded.
void DiscFormatData::Remember(WrittenTrack& track, const imapi::IStream& data)
{
    if (!context_->care.keepRecord) {
        return;
    }
    const auto disc = context_->lastQueriedDisc.value_or(DiscFacts {}).type;
    const std::optional<QString> whyNot = context_->care.keepRecord(
        RecordOf(track, data, recorder_->Drive().Facts(), disc, context_->clock.Now()));
    if (whyNot) {
        remarks_ += *whyNot;
    }
}

/// A stop is no failure.
void DiscFormatData::RememberFailure(const runtime::RuntimeError& failure, qint64 sectors)
{
    if (!context_->care.keepFailure || failure.Number() == drive::hresult::kCancelled) {
        return;
    }
    records::WriteFailure kept = FailureOf(failure,
        lastAction_.value_or(drive::WriteAction::ValidatingMedia),
        recorder_->Drive().Facts(),
        context_->lastQueriedDisc.value_or(DiscFacts {}).type,
        context_->clock.Now());
    kept.sectors = sectors;
    context_->care.keepFailure(kept);
}

void DiscFormatData::Compare(WrittenTrack& track, imapi::IStream& data)
{
    RecordingReader reader(recorder_->Drive(), context_->clock, [&](qint64 behindLast) {
        return ReportReading(track, behindLast);
    });
    comparison_ = DiscComparer(track, data, reader).Run();
    if (comparison_.end == imapi::ComparisonEnd::Hurt) {
        throw drive::PublishedError(drive::hresult::kVerificationFailed);
    }
}

/// Reports the comparison like the write: its start, its end, and in between as often as the eye
/// can follow.
bool DiscFormatData::ReportReading(const WrittenTrack& track, qint64 behindLast)
{
    constexpr double kSecondsBetweenEvents = 1.0 / 25;
    const bool isFirst = lastAction_ != drive::WriteAction::Verifying;
    const double now = context_->clock.Timer();
    drive::WriteProgress progress {.action = drive::WriteAction::Verifying,
        .startSector = track.FirstSector(),
        .sectorCount = track.Sectors(),
        .lastReadSector = isFirst ? track.FirstSector() : behindLast,
        .lastWrittenSector = track.FirstSector() + track.Sectors()};
    const bool isLast = behindLast == track.FirstSector() + track.Sectors();
    const bool isDue = isFirst || isLast
        || (behindLast > track.FirstSector() && now - lastTold_ >= kSecondsBetweenEvents);
    lastTold_ = isDue ? now : lastTold_;
    return Tell(progress, isDue);
}

bool DiscFormatData::Report(const drive::WriteProgress& progress)
{
    return Tell(progress,
        progress.action == drive::WriteAction::WritingData || progress.action != lastAction_);
}

/// @param isNews  an Update event is due; else the OnWait handler is called
bool DiscFormatData::Tell(const drive::WriteProgress& progress, bool isNews)
{
    lastAction_ = progress.action;
    const QScopedValueRollback inUpdate(isInUpdate_, true);
    if (isNews && handler_) {
        const double elapsed = context_->clock.Timer() - begun_;
        runtime::ResumeNext([&] { handler_(EventArgsOf(progress, elapsed)); });
    }
    if (!isNews && waitHandler_) {
        runtime::ResumeNext(waitHandler_);
    }
    return !cancelledAt_;
}

void DiscFormatData::CancelWrite()
{
    if (!isInUpdate_) {
        throw drive::PublishedError(drive::hresult::kWriteNotInProgress);
    }
    cancelledAt_ = cancelledAt_ ? cancelledAt_ : lastAction_;
}

void DiscFormatData::OnUpdate(imapi::DiscFormat2DataUpdate handler)
{
    handler_ = std::move(handler);
}

void DiscFormatData::OnWait(std::function<void()> handler) { waitHandler_ = std::move(handler); }

} // namespace velmora::mastering
