// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/StagedRun.h"

#include "drive/PublishedCodes.h"

#include <new>

namespace velmora::writing {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kDetail {"            "}; // before the explanation of a log line

} // namespace

StagedRun::StagedRun(const RunContext& context)
    : context_(context)
    , steps_(context, report_)
{
}

RunReport StagedRun::Conduct(BurnTarget target)
{
    report_ = {.target = target};
    StagesEnd end = StagesEnd::Abandoned;
    runtime::PendingError failure;
    try {
        end = Stages();
    } catch (const runtime::RuntimeError& raised) {
        failure.Keep(raised);
    } catch (const std::bad_alloc&) {
        failure.Keep(runtime::RuntimeError(runtime::error::kOutOfMemory));
    }
    switch (end) {
    case StagesEnd::NotBegun:
        break;
    case StagesEnd::Done:
        report_.ending = RunEnding::Done;
        LetGo();
        break;
    case StagesEnd::Abandoned:
        TakeErrorExit(failure);
        break;
    case StagesEnd::Interrupted:
        TakeInterruptedExit();
        break;
    }
    steps_.End();
    return report_;
}

StagesEnd StagedRun::RefuseRun(Refusal reason)
{
    report_.ending = RunEnding::Refused;
    report_.refusal = reason;
    return StagesEnd::Interrupted;
}

MediumVerdict StagedRun::RefuseDisc(Refusal reason, const QString& caption, const QString& question)
{
    report_.refusal = reason;
    Screen().SetStatus(caption);
    steps_.ShowLog(caption);
    steps_.ShowLog(u"Abandon !"_s);
    TellWhyNotLookedAt();
    if (Screen().AskForAnotherDisc(caption + u"\r\n\r\n"_s + question, AdviceOn(reason))) {
        return MediumVerdict::TryAgain;
    }
    report_.ending = RunEnding::Refused;
    return MediumVerdict::GiveUp;
}

/// What can be done in the window about a refused disc; empty for nothing. While another program
/// has the drive, no disc can be accepted.
QString StagedRun::AdviceOn(Refusal reason) const
{
    if (report_.errorNumber == drive::hresult::kRecorderLocked) {
        return report_.errorText;
    }
    // A detected DVD can't break a promise: none was made.
    const bool isDetectedDvd = State().MediaTypeChoice == shell::ChoiceOf(shell::DiscFormat::Dvd);
    if (reason == Refusal::OtherDisc && isDetectedDvd) {
        return u"Pour graver un DVD, revenez à la première page et choisissez « Disque DVD »."_s;
    }
    if (reason == Refusal::DiscNotBlank && steps_.Findings().IsErasable) {
        return u"Ce disque peut être effacé : onglet « Options... », « Effacer un disque RW »."_s;
    }
    return {};
}

/// A drive that is busy, failing or gone gets the message of an empty one: its own follows below.
void StagedRun::TellWhyNotLookedAt()
{
    const auto& failure = steps_.DetectionFailure();
    report_.errorNumber = failure ? failure->Number() : 0;
    report_.errorText = failure ? failure->Description() : QString();
    if (failure) {
        steps_.ShowLog(kDetail + report_.errorText);
    }
}

MediumVerdict StagedRun::RefuseDrive(
    Refusal reason, const QString& caption, const QString& question)
{
    State().MediaTypeChoice = shell::DiscTypeChoice::Failed;
    Screen().SetWaitBar(WaitBar::Stopped);
    Screen().ShowDriveWait(false);
    return RefuseDisc(reason, caption, question);
}

MediumVerdict StagedRun::AcceptDisc()
{
    report_.refusal = Refusal::None;
    report_.errorNumber = 0;
    report_.errorText.clear();
    return MediumVerdict::Fits;
}

void StagedRun::TellSuccess()
{
    const QString status = u"Gravure effectuée avec succès."_s;
    Screen().SetStatus(status);
    steps_.ShowLog(status);
}

void StagedRun::TakeErrorExit(const runtime::PendingError& failure)
{
    const bool isStopped = steps_.IsStopped();
    const bool isHurt = report_.comparison.end == imapi::ComparisonEnd::Hurt;
    if (isStopped && !isHurt) {
        report_.ending = RunEnding::Stopped;
    } else if (failure.Number() != 0) {
        report_.ending = report_.IsMade() ? RunEnding::Done : RunEnding::Failed;
    }
    const bool isTheStop = report_.ending == RunEnding::Stopped
        && (!report_.isWritten || failure.Number() == drive::hresult::kCancelled);
    if (failure.Number() != 0 && !isTheStop) {
        report_.errorNumber = failure.Number();
        report_.errorText = failure.Description();
    }
    if (failure.Number() != 0 && !isStopped) {
        TellFailure();
    }
    steps_.PutBack();
    LetGo();
}

void StagedRun::TellFailure()
{
    steps_.ShowLog(u"Une erreur est survenue : "_s);
    steps_.ShowLog(kDetail + report_.errorText + u" (Erreur n° %1) "_s.arg(report_.errorNumber));
    TellLimit();
}

/// The message of an overflow doesn't tell which limit was met.
void StagedRun::TellLimit()
{
    if (!report_.limitMet.isEmpty()) {
        steps_.ShowLog(kDetail + report_.limitMet);
    }
}

void StagedRun::TakeInterruptedExit()
{
    const QString status = u"Gravure interrompue par l'utilisateur."_s;
    if (report_.ending != RunEnding::Refused) {
        report_.ending = RunEnding::Stopped;
    }
    steps_.PutBack();
    LetGo();
    Screen().SetStatus(status);
    steps_.ShowLog(status);
}

} // namespace velmora::writing
