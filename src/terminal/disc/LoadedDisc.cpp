// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/LoadedDisc.h"

#include "runtime/ResumeNext.h"
#include "terminal/drives/DiscRefusal.h"
#include "terminal/drives/DriveWords.h"

namespace velmora::terminal {

MediaLook LookAtLoadedDisc(const DiscContext& context, const QString& recorderId)
{
    const imapi::RecorderRef recorder = context.mastering.CreateDiscRecorder();
    recorder->InitializeDiscRecorder(recorderId);
    const imapi::DiscFormat2DataRef writer = context.mastering.CreateDiscFormat2Data();
    writer->SetRecorder(recorder);
    return LookAtMedia(*writer, recorder, context.clock, context.screen, context.stopRequested);
}

MediaLook PullInAndLook(const DiscContext& context, const QString& recorderId)
{
    MediaLook look = LookAtLoadedDisc(context, recorderId);
    if (look.hasDisc) {
        return look;
    }
    runtime::ResumeNext([&] {
        const imapi::RecorderRef recorder = context.mastering.CreateDiscRecorder();
        recorder->InitializeDiscRecorder(recorderId);
        recorder->CloseTray();
    });
    return LookAtLoadedDisc(context, recorderId);
}

std::string ProblemOfLoadedDisc(const DiscContext& context, const QString& recorderId)
{
    try {
        const MediaLook look = LookAtLoadedDisc(context, recorderId);
        return look.hasDisc ? WhyNotBurnable(look) : std::string();
    } catch (const runtime::RuntimeError& failure) {
        return DriveFailureText(failure);
    }
}

} // namespace velmora::terminal
