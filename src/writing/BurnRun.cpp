// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/BurnRun.h"

#include "runtime/Conversions.h"
#include "runtime/TextRules.h"
#include "writing/SpeedChoice.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;

namespace {

/// The family of a disc, as far as two names are compared.
QString FamilyOf(const QString& name) { return name.left(3); }

} // namespace

void RequestStop(BurnScreen& screen, shell::ProgramState& state)
{
    state.StopFlag = true;
    screen.SetLabel14(u"Arrêt de la gravure demandé... Veuillez patienter..."_s);
    screen.ShowLog(u"Interruption du processus de gravure..."_s, false);
}

BurnRun::BurnRun(const RunContext& context)
    : context_(context)
    , screen_(context.screen)
    , options_(context.options)
    , state_(context.state)
    , steps_(context)
    , image_(context)
{
}

void BurnRun::Run(BurnTarget target)
{
    target_ = target;
    state_.ImagePath.clear();
    state_.BurnDone = false;
    Conduct();
}

RunEnd BurnRun::Stages()
{
    if (!IsDiscRun()) {
        state_.ImagePath = screen_.GetIsoFileName(true);
        if (state_.ImagePath.isEmpty()) {
            return RunEnd::NotBegun;
        }
    }
    Begin();
    const qint16 listIndex = options_.RecorderPlace();
    if (listIndex == recorder::kNoRecorder) {
        return RunEnd::Interrupted;
    }
    Connect(listIndex);
    if (context_.ListFile.Count() == 0) {
        TellThatThereIsNothingToBurn();
        return RunEnd::Interrupted;
    }
    if (!BuildImage()) {
        return RunEnd::Interrupted;
    }
    return IsDiscRun() ? BurnDisc() : SaveImage();
}

void BurnRun::Begin()
{
    state_.StopFlag = false;
    steps_.ShowStopButton();
    screen_.Pump();
}

void BurnRun::Connect(qint16 listIndex)
{
    steps_.ShowLog(u"Connection au graveur..."_s, true);
    if (!IsDiscRun()) {
        steps_.ShowLog(u"Initialisation..."_s, true);
    }
    steps_.FindRecorder(listIndex);
    if (IsDiscRun()) {
        steps_.ShowLog(u"Initialisation du graveur..."_s);
    }
    steps_.OpenWriter();
}

void BurnRun::TellThatThereIsNothingToBurn()
{
    const QString rule = u"****************************************************"_s;
    screen_.Beep();
    steps_.ShowLog(u" "_s, true);
    steps_.ShowLog(u"Aucun fichier n'a été sélectionné pour la gravure !"_s);
    steps_.ShowLog(u" "_s);
    steps_.ShowLog(rule);
    steps_.ShowLog(u"     GRAVURE ABANDONNÉE"_s);
    steps_.ShowLog(rule);
}

/// @return false when the user asked for a stop
bool BurnRun::BuildImage()
{
    steps_.ShowLog(u"Début de lecture des fichiers...."_s);
    image_.ConfigureImage(steps_.Recorder());
    image_.AddCompilationToImage();
    if (state_.StopFlag) {
        return false;
    }
    result_ = image_.CreateResultImage();
    if (state_.StopFlag) {
        return false;
    }
    screen_.Pump();
    return true;
}

RunEnd BurnRun::SaveImage()
{
    const SaveEnd end = image_.SaveImage(*result_);
    return end == SaveEnd::Saved ? RunEnd::Done : RunEnd::Interrupted;
}

RunEnd BurnRun::BurnDisc()
{
    if (!FindMedium()) {
        return RunEnd::Abandoned;
    }
    return Write(ChooseWriteSpeed());
}

/// Looks at one disc after the other until one fits. @return false when the user gave up
bool BurnRun::FindMedium()
{
    bool prompts = false;
    if (state_.MediaTypeChoice == shell::DiscTypeChoice::AsDetected) {
        state_.MediaTypeChoice = shell::ChoiceOf(state_.DiscFormat);
        prompts = true;
    }
    MediumVerdict verdict = MediumVerdict::TryAgain;
    while (verdict == MediumVerdict::TryAgain) {
        screen_.Pump();
        prompts = !prompts;
        steps_.ShowWait();
        const recorder::DetectedMedia media = steps_.DetectMedia(prompts);
        if (media.end == recorder::DetectionEnd::NoText) {
            return false; // the panel and the hourglass stay
        }
        steps_.HideWait();
        verdict = Judge(media);
    }
    return verdict == MediumVerdict::Fits;
}

MediumVerdict BurnRun::Judge(const recorder::DetectedMedia& media)
{
    const MediaFindings& findings = steps_.Findings();
    if (media.end == recorder::DetectionEnd::NoUsableDisc) {
        return steps_.RefuseEmptyDrive(
            u"Le graveur est vide ou le média est incompatible à la gravure."_s,
            u"Voulez-vous réintroduire un nouveau média ?"_s);
    }
    const QString status = runtime::Trim(media.text);
    steps_.ShowLog(u"Média présent dans le lecteur : "_s + status);
    NameRequestedMedium();
    if (IsOtherThanRequested(status)) {
        return Refuse(u"Le média inséré ("_s + status + u") est différent du média demandé ("_s
            + requestedName_ + u") !"_s);
    }
    if (state_.TotalSizeBytes > state_.MediaFreeBytes) {
        return Refuse(
            u"La place disponible sur le média n'est pas suffisante pour votre projet."_s);
    }
    if (findings.FileSystemImported || !findings.MediaBlank) {
        return Refuse(u"Le média n'est pas vierge."_s);
    }
    return MediumVerdict::Fits;
}

void BurnRun::NameRequestedMedium()
{
    using shell::DiscTypeChoice;
    switch (state_.MediaTypeChoice) {
    case DiscTypeChoice::DvdPlusR:
    case DiscTypeChoice::DvdPlusRDualLayer:
        requestedName_ = u"DVD-R ou RW"_s;
        break;
    case DiscTypeChoice::BdR:
        requestedName_ = u"Blue Ray Disc"_s;
        break;
    case DiscTypeChoice::CdR:
        requestedName_ = u"CD-R ou RW"_s;
        break;
    default:
        break;
    }
}

bool BurnRun::IsOtherThanRequested(const QString& status) const
{
    return FamilyOf(status) != FamilyOf(requestedName_) && shell::IsPromise(state_.MediaTypeChoice);
}

MediumVerdict BurnRun::Refuse(const QString& caption)
{
    return steps_.Refuse(caption, u"Voulez-vois réintroduire un nouveau média ?"_s);
}

double BurnRun::ChooseWriteSpeed()
{
    const SpeedSelection selection = options_.Speed();
    const SpeedChoice choice = ChooseSpeed(selection, steps_.Findings().SpeedList);
    steps_.ShowLog(u"Vitesse de gravure retenue : "_s + choice.retainedMultiplier
        + u"x (Sélection utilisateur : "_s + selection.text + u") "_s);
    return choice.writeSpeed;
}

RunEnd BurnRun::Write(double writeSpeed)
{
    if (state_.StopFlag) {
        return RunEnd::Interrupted;
    }
    const imapi::StreamRef stream = result_->ImageStream();
    if (state_.StopFlag) {
        return RunEnd::Interrupted;
    }
    steps_.dataWriter1().SetWriteSpeed(runtime::ToInt32(writeSpeed), false);
    if (options_.Session() == SessionOption::CloseDisc) {
        steps_.dataWriter1().SetForceMediaToBeClosed(true);
    }
    if (state_.StopFlag) {
        return RunEnd::Interrupted;
    }
    steps_.Write(stream);
    screen_.Pump();
    context_.companion.Commandpoke();
    steps_.dataWriter1().Recorder()->EjectMedia();
    return state_.StopFlag ? RunEnd::Interrupted : Succeed();
}

RunEnd BurnRun::Succeed()
{
    screen_.SetLabel14(u"Gravure effectuée avec succès."_s);
    steps_.ShowLog(screen_.Label14());
    state_.BurnDone = true;
    return RunEnd::Done;
}

void BurnRun::NormalEnd()
{
    Release();
    ShowStartButtons();
}

void BurnRun::ErrorExit(const runtime::PendingError& failure)
{
    steps_.Report(failure);
    steps_.PutBack();
    Release();
    ShowStartButtons();
}

void BurnRun::InterruptedExit()
{
    steps_.PutBack();
    Release();
    ShowStartButtons();
    screen_.SetLabel14(u"Gravure interrompue par l'utilisateur."_s);
    steps_.ShowLog(screen_.Label14());
}

void BurnRun::Release()
{
    image_.Release();
    steps_.ReleaseWriter();
}

void BurnRun::ShowStartButtons()
{
    screen_.ShowBurnButton(BurnButton::BurnDisc, true);
    screen_.ShowBurnButton(BurnButton::MakeIsoFile, true);
    screen_.ShowBurnButton(BurnButton::Stop, false);
}

} // namespace velmora::writing
