// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/DiscAftermath.h"

#include "runtime/ResumeNext.h"
#include "terminal/drives/MediaLook.h"

#include <utility>

namespace velmora::terminal {

DiscAftermath::DiscAftermath(const DiscContext& context, QString recorderId)
    : context_(context)
    , recorderId_(std::move(recorderId))
    , recording_(context.witness.LastRecording())
{
}

bool DiscAftermath::IsTouched() const
{
    return recording_ != nullptr && recording_->writtenSectors > 0;
}

std::string DiscAftermath::Words() const
{
    const bool canBeErased = recording_ != nullptr && recording_->disc.erasable;
    if (IsTouched()) {
        return canBeErased
            ? "le disque est inachevé ; effacez-le (« velmora-cli erase ») pour vous en resservir."
            : "le disque est inachevé et ne peut pas servir.";
    }
    const bool isSpent = recording_ != nullptr && !canBeErased && IsBlankNoMore();
    return isSpent ? "rien n'a été gravé, mais le disque n'est plus vierge : prenez-en un autre."
                   : "rien n'a été gravé.";
}

std::string DiscAftermath::WordsOfStop(bool tookAllSectors) const
{
    return tookAllSectors
        ? "toutes les données sont gravées, mais rien ne dit que le disque est achevé : relisez-le "
          "avant de vous y fier."
        : Words();
}

std::string DiscAftermath::AdviceToErase() const
{
    const auto& disc = context_.witness.LastLook();
    const bool isUsed = disc && disc->state != drive::DiscState::None && !disc->heuristicallyBlank;
    return isUsed && disc->erasable
        ? " Un disque réinscriptible s'efface par « velmora-cli erase »."
        : "";
}

/// A drive reserves room on a disc, and begins a CD's track, before the first sector.
bool DiscAftermath::IsBlankNoMore() const
{
    MediaLook look;
    runtime::ResumeNext([&] {
        const imapi::RecorderRef recorder = context_.mastering.CreateDiscRecorder();
        recorder->InitializeDiscRecorder(recorderId_);
        const imapi::DiscFormat2DataRef writer = context_.mastering.CreateDiscFormat2Data();
        writer->SetRecorder(recorder);
        look = LookAtMedia(
            *writer, recorder, context_.clock, context_.screen, context_.stopRequested);
    });
    return look.hasDisc && !look.isBlank;
}

} // namespace velmora::terminal
