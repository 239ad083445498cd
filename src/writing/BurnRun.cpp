// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/BurnRun.h"

#include "runtime/Conversions.h"
#include "runtime/TextRules.h"
#include "writing/ImageDraft.h"
#include "writing/SpeedChoice.h"

namespace velmora::writing {

using namespace Qt::StringLiterals;

namespace {

/// The family of a disc, for comparing two names.
QString FamilyOf(const QString& name) { return name.left(3); }

} // namespace

void RequestStop(BurnScreen& screen, shell::ProgramState& state)
{
    state.StopFlag = true;
    screen.SetStatus(u"Arrêt de la gravure demandé... Veuillez patienter..."_s);
    screen.AddLogLine(u"Interruption du processus de gravure..."_s);
}

BurnRun::BurnRun(const RunContext& context)
    : StagedRun(context)
    , screen_(context.screen)
    , options_(context.options)
    , state_(context.state)
    , image_(context, Report())
{
}

RunReport BurnRun::Run(BurnTarget target)
{
    target_ = target;
    state_.ImagePath = {};
    state_.BurnDone = false;
    return Conduct(target);
}

StagesEnd BurnRun::Stages()
{
    if (!IsDiscRun()) {
        state_.ImagePath = screen_.AskIsoFile(IsoFileUse::Write);
        if (state_.ImagePath.IsEmpty()) {
            return StagesEnd::NotBegun;
        }
    }
    Begin();
    const qint16 listIndex = options_.RecorderPlace();
    if (listIndex == recorder::kNoRecorder) {
        return RefuseRun(Refusal::NoRecorder);
    }
    Connect(listIndex);
    if (Context().ListFile.Count() == 0) {
        TellThatThereIsNothingToBurn();
        return RefuseRun(Refusal::NothingToBurn);
    }
    if (!BuildImage()) {
        return StagesEnd::Interrupted;
    }
    return IsDiscRun() ? BurnDisc() : SaveImage();
}

void BurnRun::Begin()
{
    state_.StopFlag = false;
    Steps().Begin();
    screen_.Pump();
}

void BurnRun::Connect(qint16 listIndex)
{
    Steps().StartLog(u"Connection au graveur..."_s);
    if (!IsDiscRun()) {
        Steps().StartLog(u"Initialisation..."_s);
    }
    Steps().FindRecorder(listIndex);
    if (IsDiscRun()) {
        Steps().ShowLog(u"Initialisation du graveur..."_s);
    }
    Steps().OpenWriter();
}

void BurnRun::TellThatThereIsNothingToBurn()
{
    const QString rule = u"****************************************************"_s;
    screen_.Beep();
    Steps().StartLog(u" "_s);
    Steps().ShowLog(u"Aucun fichier n'a été sélectionné pour la gravure !"_s);
    Steps().ShowLog(u" "_s);
    Steps().ShowLog(rule);
    Steps().ShowLog(u"     GRAVURE ABANDONNÉE"_s);
    Steps().ShowLog(rule);
}

/// @return false when the user asked for a stop
bool BurnRun::BuildImage()
{
    Steps().ShowLog(u"Début de lecture des fichiers...."_s);
    image_.ConfigureImage(Steps().Recorder());
    image_.AddCompilationToImage();
    if (state_.StopFlag) {
        return false;
    }
    result_ = image_.CreateResultImage();
    TakeRemarks();
    if (state_.StopFlag) {
        return false;
    }
    screen_.Pump();
    return true;
}

/// How the image differs from the compilation.
void BurnRun::TakeRemarks()
{
    Report().isLaidOut = true;
    Report().hiddenEntries = HiddenEntriesLeftOut(state_, Context().ListFile);
    Report().changedNames = result_->ChangedNames();
    Report().partlyHeld = result_->PartlyHeld();
    Report().nameHazards = result_->NameHazards();
    Report().linksLeadingOut = result_->LinksLeadingOut();
    Report().keepsOtherSums = result_->KeepsOtherSums();
    const std::vector<imapi::LeftOutEntry> links = result_->LinksLeftOut();
    Report().leftOut.insert(Report().leftOut.end(), links.begin(), links.end());
}

StagesEnd BurnRun::SaveImage()
{
    Report().isoFile = state_.ImagePath;
    const SaveEnd end = image_.SaveImage(*result_);
    return end == SaveEnd::Saved ? StagesEnd::Done : StagesEnd::Interrupted;
}

StagesEnd BurnRun::BurnDisc()
{
    if (!FindMedium()) {
        return StagesEnd::Abandoned;
    }
    return Write(ChooseWriteSpeed());
}

/// Examines one disc after another until one fits. @return false when the user gave up
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
        Steps().ShowWait();
        const recorder::DetectedMedia media = Steps().DetectMedia(prompts);
        if (media.end == recorder::DetectionEnd::NoText) {
            GiveUp();
            return false; // the panel and the hourglass stay
        }
        Steps().HideWait();
        verdict = Judge(media);
    }
    return verdict == MediumVerdict::Fits;
}

MediumVerdict BurnRun::Judge(const recorder::DetectedMedia& media)
{
    const MediaFindings& findings = Steps().Findings();
    if (media.end == recorder::DetectionEnd::NoUsableDisc) {
        return RefuseDrive(Refusal::NoUsableDisc,
            u"Le graveur est vide ou le média est incompatible à la gravure."_s,
            u"Voulez-vous réintroduire un nouveau média ?"_s);
    }
    const QString status = runtime::Trim(media.text);
    Steps().ShowLog(u"Média présent dans le lecteur : "_s + status);
    NameRequestedMedium();
    if (IsOtherThanRequested(status)) {
        return Refuse(Refusal::OtherDisc,
            u"Le média inséré ("_s + status + u") est différent du média demandé ("_s
                + requestedName_ + u") !"_s);
    }
    if (state_.TotalSizeBytes > state_.MediaFreeBytes) {
        return Refuse(Refusal::NoRoom,
            u"La place disponible sur le média n'est pas suffisante pour votre projet."_s);
    }
    if (findings.FileSystemImported || !findings.MediaBlank) {
        return Refuse(Refusal::DiscNotBlank, u"Le média n'est pas vierge."_s);
    }
    return AcceptDisc();
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

MediumVerdict BurnRun::Refuse(Refusal reason, const QString& caption)
{
    return RefuseDisc(reason, caption, u"Voulez-vois réintroduire un nouveau média ?"_s);
}

double BurnRun::ChooseWriteSpeed()
{
    const SpeedSelection selection = options_.Speed();
    const SpeedChoice choice = ChooseSpeed(selection, Steps().Findings().SpeedList);
    Steps().ShowLog(u"Vitesse de gravure retenue : "_s + choice.retainedMultiplier
        + u"x (Sélection utilisateur : "_s + selection.text + u") "_s);
    return choice.writeSpeed;
}

StagesEnd BurnRun::Write(double writeSpeed)
{
    if (state_.StopFlag) {
        return StagesEnd::Interrupted;
    }
    const imapi::StreamRef stream = result_->ImageStream();
    if (state_.StopFlag) {
        return StagesEnd::Interrupted;
    }
    Steps().dataWriter1().SetWriteSpeed(runtime::ToInt32(writeSpeed), false);
    if (options_.Session() == SessionOption::CloseDisc) {
        Steps().dataWriter1().SetForceMediaToBeClosed(true);
    }
    if (state_.StopFlag) {
        return StagesEnd::Interrupted;
    }
    Steps().Write(stream);
    screen_.Pump();
    Context().companion.Finish();
    Steps().Eject();
    return state_.StopFlag ? StagesEnd::Interrupted : Succeed();
}

StagesEnd BurnRun::Succeed()
{
    TellSuccess();
    state_.BurnDone = true;
    return StagesEnd::Done;
}

void BurnRun::LetGo()
{
    image_.Release();
    Steps().ReleaseWriter();
    screen_.ShowBurnButton(BurnButton::BurnDisc, true);
    screen_.ShowBurnButton(BurnButton::MakeIsoFile, true);
    screen_.ShowBurnButton(BurnButton::Stop, false);
}

} // namespace velmora::writing
