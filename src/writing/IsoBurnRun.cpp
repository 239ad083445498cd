// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/IsoBurnRun.h"

#include "compilation/NativeSourceFiles.h"
#include "runtime/Conversions.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;

IsoBurnRun::IsoBurnRun(const RunContext& context)
    : context_(context)
    , screen_(context.screen)
    , state_(context.state)
    , steps_(context)
{
}

void IsoBurnRun::Run()
{
    screen_.SetLabel14({});
    state_.ImagePath.clear();
    Conduct();
}

RunEnd IsoBurnRun::Stages()
{
    state_.ImagePath = screen_.GetIsoFileName(false);
    if (state_.ImagePath.isEmpty()) {
        return RunEnd::NotBegun;
    }
    Begin();
    const qint16 listIndex = context_.options.RecorderPlace();
    if (listIndex == recorder::kNoRecorder) {
        return RunEnd::Interrupted;
    }
    Connect(listIndex);
    steps_.ShowLog(u"Chargement du fichie ISO...."_s);
    if (state_.StopFlag) {
        return RunEnd::Interrupted;
    }
    screen_.ShowBar(RunBar::FileBar, false);
    return FindMedium() ? Write() : RunEnd::Abandoned;
}

void IsoBurnRun::Begin()
{
    state_.StopFlag = false;
    steps_.ShowStopButton();
    screen_.ShowIsoRunPage();
    screen_.Pump();
}

void IsoBurnRun::Connect(qint16 listIndex)
{
    steps_.ShowLog(u"Connection au graveur..."_s, true);
    steps_.ShowLog(u"Initialisation..."_s, true);
    steps_.FindRecorder(listIndex);
    steps_.ShowLog(u"Initialisation du graveur..."_s);
    steps_.OpenWriter();
}

/// Asks for one disc after the other until one fits. @return false when the user gave up
bool IsoBurnRun::FindMedium()
{
    MediumVerdict verdict = MediumVerdict::TryAgain;
    while (verdict == MediumVerdict::TryAgain) {
        const recorder::DetectedMedia media = steps_.DetectMedia(true);
        if (media.end == recorder::DetectionEnd::NoText) {
            return false;
        }
        screen_.SetLabel14({});
        screen_.Pump();
        steps_.ShowWait();
        steps_.HideWait();
        verdict = Judge(media.end);
    }
    return verdict == MediumVerdict::Fits;
}

MediumVerdict IsoBurnRun::Judge(recorder::DetectionEnd found)
{
    const QString question = u"Voulez-vous réintroduire un nouveau média ?"_s;
    const MediaFindings& findings = steps_.Findings();
    if (found == recorder::DetectionEnd::NoUsableDisc || !findings.MediaBlank) {
        return steps_.RefuseEmptyDrive(
            u"Le graveur est vide ou bien le média n'est pas vierge ou est incompatible à la gravure."_s,
            question);
    }
    if (IsLargerThanMedium()) {
        return steps_.Refuse(
            u"La place disponible sur le média n'est pas suffisante pour votre projet."_s,
            question);
    }
    if (findings.FileSystemImported) {
        return steps_.Refuse(u"Le média n'est pas vierge."_s, question);
    }
    return MediumVerdict::Fits;
}

/// Of an image of 2 GiB and more the wrapped length counts here; the write finds out.
bool IsoBurnRun::IsLargerThanMedium() const
{
    const double bytes = compilation::NativeSourceFiles().FileSize(state_.ImagePath);
    return runtime::WrappedFileLength(static_cast<qint64>(bytes)) > state_.MediaFreeBytes;
}

RunEnd IsoBurnRun::Write()
{
    constexpr qint32 kFastest = -1;
    steps_.ShowLog(u"Vitesse de gravure retenue : Vitesse maximum"_s);
    if (state_.StopFlag) {
        return RunEnd::Interrupted;
    }
    const imapi::StreamRef stream
        = context_.mastering.CreateStreamOnFile(state_.ImagePath, imapi::FileStreamMode::Read);
    if (state_.StopFlag) {
        return RunEnd::Interrupted;
    }
    steps_.dataWriter1().SetWriteSpeed(kFastest, false);
    if (state_.StopFlag) {
        return RunEnd::Interrupted;
    }
    WriteStream(stream);
    return state_.StopFlag ? RunEnd::Interrupted : Succeed();
}

void IsoBurnRun::WriteStream(const imapi::StreamRef& stream)
{
    steps_.dataWriter1().Recorder()->AcquireExclusiveAccess(false, u"Tamsel"_s);
    steps_.Write(stream);
    screen_.ShowBurnButton(BurnButton::Stop, false);
    screen_.Pump();
    context_.companion.Commandpoke();
    steps_.dataWriter1().Recorder()->EjectMedia();
}

RunEnd IsoBurnRun::Succeed()
{
    screen_.SetLabel14(u"Gravure effectuée avec succès."_s);
    steps_.ShowLog(screen_.Label14());
    steps_.dataWriter1().Recorder()->ReleaseExclusiveAccess();
    return RunEnd::Done;
}

void IsoBurnRun::NormalEnd() { Release(); }

void IsoBurnRun::ErrorExit(const runtime::PendingError& failure)
{
    steps_.Report(failure);
    steps_.PutBack();
    Release();
}

void IsoBurnRun::InterruptedExit()
{
    steps_.PutBack();
    Release();
    screen_.SetLabel14(u"Gravure interrompue par l'utilisateur."_s);
    steps_.ShowLog(screen_.Label14());
}

void IsoBurnRun::Release()
{
    steps_.ReleaseWriter();
    screen_.ShowBurnButton(BurnButton::Stop, false);
}

} // namespace velmora::writing
