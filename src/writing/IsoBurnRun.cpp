// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/IsoBurnRun.h"

#include "compilation/NativeSourceFiles.h"
#include "drive/PublishedCodes.h"
#include "runtime/Conversions.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;

IsoBurnRun::IsoBurnRun(const RunContext& context)
    : StagedRun(context)
    , screen_(context.screen)
    , state_(context.state)
{
}

RunReport IsoBurnRun::Run()
{
    screen_.SetStatus({});
    state_.ImagePath = {};
    return Conduct(BurnTarget::Disc);
}

StagesEnd IsoBurnRun::Stages()
{
    state_.ImagePath = screen_.AskIsoFile(IsoFileUse::Burn);
    if (state_.ImagePath.IsEmpty()) {
        return StagesEnd::NotBegun;
    }
    Begin();
    const qint16 listIndex = Context().options.RecorderPlace();
    if (listIndex == recorder::kNoRecorder) {
        return RefuseRun(Refusal::NoRecorder);
    }
    Connect(listIndex);
    Steps().ShowLog(u"Chargement du fichie ISO...."_s);
    if (state_.StopFlag) {
        return StagesEnd::Interrupted;
    }
    screen_.ShowProgress(ProgressOf::File, false);
    return FindMedium() ? Write() : StagesEnd::Abandoned;
}

void IsoBurnRun::Begin()
{
    state_.StopFlag = false;
    Steps().Begin();
    screen_.ShowIsoRunPage();
    screen_.Pump();
}

void IsoBurnRun::Connect(qint16 listIndex)
{
    Steps().StartLog(u"Connection au graveur..."_s);
    Steps().StartLog(u"Initialisation..."_s);
    Steps().FindRecorder(listIndex);
    Steps().ShowLog(u"Initialisation du graveur..."_s);
    Steps().OpenWriter();
}

/// Asks for one disc after another until one fits. @return false when the user gave up
bool IsoBurnRun::FindMedium()
{
    MediumVerdict verdict = MediumVerdict::TryAgain;
    while (verdict == MediumVerdict::TryAgain) {
        const recorder::DetectedMedia media = Steps().DetectMedia(true);
        if (media.end == recorder::DetectionEnd::NoText) {
            GiveUp();
            return false;
        }
        screen_.SetStatus({});
        screen_.Pump();
        Steps().ShowWait();
        Steps().HideWait();
        verdict = Judge(media.end);
    }
    return verdict == MediumVerdict::Fits;
}

MediumVerdict IsoBurnRun::Judge(recorder::DetectionEnd found)
{
    const QString question = u"Voulez-vous réintroduire un nouveau média ?"_s;
    const MediaFindings& findings = Steps().Findings();
    const bool isUsable = found != recorder::DetectionEnd::NoUsableDisc;
    if (!isUsable || !findings.MediaBlank) {
        return RefuseDrive(isUsable ? Refusal::DiscNotBlank : Refusal::NoUsableDisc,
            u"Le graveur est vide ou bien le média n'est pas vierge ou est incompatible à la gravure."_s,
            question);
    }
    if (IsLargerThanMedium()) {
        return RefuseDisc(Refusal::NoRoom,
            u"La place disponible sur le média n'est pas suffisante pour votre projet."_s,
            question);
    }
    if (findings.FileSystemImported) {
        return RefuseDisc(Refusal::DiscNotBlank, u"Le média n'est pas vierge."_s, question);
    }
    return AcceptDisc();
}

/// For an image of 2 GiB and more the wrapped length counts here; the write finds out.
bool IsoBurnRun::IsLargerThanMedium() const
{
    const double bytes = compilation::NativeSourceFiles().FileSize(state_.ImagePath);
    return runtime::WrappedFileLength(static_cast<qint64>(bytes)) > state_.MediaFreeBytes;
}

StagesEnd IsoBurnRun::Write()
{
    Steps().ShowLog(u"Vitesse de gravure retenue : Vitesse maximum"_s);
    if (state_.StopFlag) {
        return StagesEnd::Interrupted;
    }
    const imapi::StreamRef stream
        = Context().mastering.CreateStreamOnFile(state_.ImagePath, imapi::FileStreamMode::Read);
    RequireWhole(stream);
    if (state_.StopFlag) {
        return StagesEnd::Interrupted;
    }
    Steps().dataWriter1().SetWriteSpeed(imapi::kFastestWriteSpeed, false);
    if (state_.StopFlag) {
        return StagesEnd::Interrupted;
    }
    WriteStream(stream);
    return state_.StopFlag ? StagesEnd::Interrupted : Succeed();
}

/// A stream that failed to open is left to the write, which refuses it.
void IsoBurnRun::RequireWhole(const imapi::StreamRef& stream)
{
    if (!stream) {
        return;
    }
    const imapi::IsoImageManagerRef manager = Context().mastering.CreateIsoImageManager();
    manager->SetStream(stream);
    if (Context().options.TakesAnyBytes()) {
        return;
    }
    try {
        manager->Validate();
    } catch (const runtime::RuntimeError& failure) {
        if (failure.Number() != drive::hresult::kNoKnownFileSystem) { // that promises no length
            throw;
        }
    }
}

void IsoBurnRun::WriteStream(const imapi::StreamRef& stream)
{
    Steps().dataWriter1().Recorder()->AcquireExclusiveAccess(false, u"Tamsel"_s);
    Steps().Write(stream);
    screen_.ShowBurnButton(BurnButton::Stop, false);
    screen_.Pump();
    Context().companion.Finish();
    Steps().Eject();
}

StagesEnd IsoBurnRun::Succeed()
{
    TellSuccess();
    Steps().dataWriter1().Recorder()->ReleaseExclusiveAccess();
    return StagesEnd::Done;
}

void IsoBurnRun::LetGo()
{
    Steps().ReleaseWriter();
    screen_.ShowBurnButton(BurnButton::Stop, false);
}

} // namespace velmora::writing
