// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imapi/DiscFormatErase.h"

#include "imapi/ClientName.h"
#include "imapi/DiscState.h"
#include "imapi/MediaProfiles.h"
#include "runtime/ResumeNext.h"

#include <QScopedValueRollback>

#include <utility>

namespace velmora::imapi {

namespace {

void RequireErasable(const DiscInfo& disc)
{
    if (disc.state == DiscState::None) {
        throw PublishedError(hresult::kNoMedia);
    }
    if (!IsErasable(MediaTypeOf(disc))) {
        throw PublishedError(hresult::kEraseMediaNotSupported);
    }
    if (!disc.erasable) {
        throw PublishedError(hresult::kNotErasable);
    }
}

} // namespace

void DiscFormatErase::RequireIdle() const
{
    if (isErasing_) {
        throw PublishedError(hresult::kEraseInProgress);
    }
}

void DiscFormatErase::SetRecorder(const RecorderRef& recorder)
{
    RequireIdle();
    if (recorder && recorder_) {
        throw PublishedError(hresult::kOneRecorderOnly);
    }
    if (recorder) {
        OwnRecorder(recorder, hresult::kPointer);
    }
    recorder_ = recorder;
}

void DiscFormatErase::SetClientName(const QString& name)
{
    RequireIdle();
    if (!IsClientName(name)) {
        throw PublishedError(hresult::kEraseClientNameNotValid);
    }
    clientName_ = name;
}

void DiscFormatErase::SetFullErase(bool full)
{
    RequireIdle();
    isFull_ = full;
}

bool DiscFormatErase::IsCurrentMediaSupported(const RecorderRef& recorder)
{
    DiscRecorder& own = OwnRecorder(recorder, hresult::kPointer);
    RequireIdle();
    return IsErasable(MediaTypeOf(own.LookAnew()));
}

void DiscFormatErase::EraseMedia()
{
    DiscRecorder& recorder = OwnRecorder(recorder_, hresult::kRecorderRequired);
    RequireIdle();
    if (clientName_.isEmpty()) {
        throw PublishedError(hresult::kEraseClientNameNotValid);
    }
    if (!CanErase(recorder.SupportedProfiles())) {
        throw PublishedError(hresult::kEraseRecorderNotSupported);
    }
    const QScopedValueRollback erasing(isErasing_, true);
    const RecorderRef keptAlive = recorder_;
    const ExclusiveHold hold(recorder, clientName_);
    RequireErasable(recorder.LookAnew());
    recorder.BoundDrive()->Erase(isFull_, [this](qint32 elapsed, qint32 estimated) {
        if (handler_) {
            runtime::ResumeNext([&] { handler_(elapsed, estimated); });
        }
    });
}

void DiscFormatErase::OnUpdate(DiscFormat2EraseUpdate handler) { handler_ = std::move(handler); }

} // namespace velmora::imapi
