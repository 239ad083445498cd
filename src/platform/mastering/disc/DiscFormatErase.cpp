// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/disc/DiscFormatErase.h"

#include "drive/DiscKinds.h"
#include "drive/PublishedCodes.h"
#include "drive/Readiness.h"
#include "mastering/base/DiscState.h"
#include "mastering/disc/ClientName.h"
#include "mastering/disc/DiscRecorder.h"
#include "runtime/ResumeNext.h"

#include <QScopedValueRollback>

#include <utility>

namespace velmora::mastering {

using namespace Qt::StringLiterals;

namespace {

void RequireErasingDrive(const imapi::IDiscRecorder2& recorder)
{
    if (!drive::CanErase(recorder.SupportedProfiles())) {
        throw drive::PublishedError(drive::hresult::kEraseRecorderNotSupported,
            u"Ce lecteur ne sait pas effacer de disque : choisissez un autre graveur."_s);
    }
}

void RequireErasable(const drive::DiscInfo& disc)
{
    if (disc.state == drive::DiscState::None) {
        throw drive::PublishedError(drive::hresult::kNoMedia);
    }
    if (!drive::IsErasable(MediaTypeOf(disc))) {
        throw drive::PublishedError(drive::hresult::kEraseMediaNotSupported);
    }
    if (!disc.erasable) {
        throw drive::PublishedError(drive::hresult::kNotErasable);
    }
}

/// A drive may claim that it has erased and have done nothing: only the disc itself tells.
void RequireErased(const drive::DiscInfo& disc)
{
    if (disc.state == drive::DiscState::None) {
        throw drive::PublishedError(drive::hresult::kNoMedia);
    }
    const bool isOverwritten = disc.state == drive::DiscState::Overwritable;
    if (disc.state != drive::DiscState::Blank && !(isOverwritten && disc.heuristicallyBlank)) {
        throw drive::PublishedError(drive::hresult::kEraseUnexpectedResponse);
    }
}

} // namespace

DiscFormatErase::DiscFormatErase(std::shared_ptr<MasteringContext> context)
    : context_(std::move(context))
{
}

void DiscFormatErase::RequireIdle() const
{
    if (isErasing_) {
        throw drive::PublishedError(drive::hresult::kEraseInProgress);
    }
}

void DiscFormatErase::SetRecorder(const imapi::RecorderRef& recorder)
{
    RequireIdle();
    if (recorder && recorder_) {
        throw drive::PublishedError(drive::hresult::kOneRecorderOnly);
    }
    if (recorder) {
        Given(recorder, drive::hresult::kPointer);
    }
    recorder_ = recorder;
}

void DiscFormatErase::SetClientName(const QString& name)
{
    RequireIdle();
    if (!IsClientName(name)) {
        throw drive::PublishedError(drive::hresult::kEraseClientNameNotValid);
    }
    clientName_ = name;
}

void DiscFormatErase::SetFullErase(bool full)
{
    RequireIdle();
    isFull_ = full;
}

bool DiscFormatErase::IsCurrentMediaSupported(const imapi::RecorderRef& recorder)
{
    imapi::IDiscRecorder2& own = Given(recorder, drive::hresult::kPointer);
    RequireIdle();
    return drive::IsErasable(MediaTypeOf(own.Drive().LookAnew()));
}

void DiscFormatErase::RequireSupportedMedia(const imapi::RecorderRef& recorder)
{
    imapi::IDiscRecorder2& own = Given(recorder, drive::hresult::kPointer);
    RequireIdle();
    RequireErasingDrive(own);
    RequireErasable(own.Drive().LookAnew());
}

void DiscFormatErase::EraseMedia()
{
    imapi::IDiscRecorder2& recorder = Given(recorder_, drive::hresult::kRecorderRequired);
    RequireIdle();
    hasBegun_ = false;
    if (clientName_.isEmpty()) {
        throw drive::PublishedError(drive::hresult::kEraseClientNameNotValid);
    }
    RequireErasingDrive(recorder);
    const QScopedValueRollback erasing(isErasing_, true);
    isCancelled_ = false;
    const imapi::RecorderRef keptAlive = recorder_;
    const ExclusiveHold hold(recorder, clientName_);
    RequireErasable(LookOnceReady(recorder.Drive()));
    hasBegun_ = true;
    recorder.Drive().Hardware()->Erase(
        isFull_, [this](qint32 elapsed, qint32 estimated) { return Tell(elapsed, estimated); });
    RequireErased(recorder.Drive().LookAnew());
}

/// A disc that was just inserted takes a while to be recognised.
drive::DiscInfo DiscFormatErase::LookOnceReady(drive::BoundDrive& drive)
{
    constexpr int kMostSeconds = 60;
    return drive::AnswerOnceReady([&drive] { return drive.LookAnew(); },
        kMostSeconds,
        context_->clock,
        [this](int waited) {
            if (!Tell(waited, 0)) {
                throw drive::PublishedError(drive::hresult::kCancelled);
            }
            return true;
        });
}

/// @return false if the handler has cancelled the erase
bool DiscFormatErase::Tell(qint32 elapsed, qint32 estimated)
{
    if (handler_) {
        runtime::ResumeNext([&] { handler_(elapsed, estimated); });
    }
    return !isCancelled_;
}

void DiscFormatErase::OnUpdate(imapi::DiscFormat2EraseUpdate handler)
{
    handler_ = std::move(handler);
}

} // namespace velmora::mastering
