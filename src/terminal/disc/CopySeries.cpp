// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/CopySeries.h"

#include "runtime/ResumeNext.h"
#include "terminal/disc/LoadedDisc.h"
#include "terminal/drives/DiscRefusal.h"
#include "terminal/drives/DriveWords.h"

namespace velmora::terminal {

namespace {

bool IsMade(ExitCode code) { return code == ExitCode::Done || code == ExitCode::Incomplete; }

} // namespace

CopySeries::CopySeries(
    const DiscContext& context, const DiscTerms& terms, DiscRun& run, DiscPrompt prompt)
    : context_(context)
    , terms_(terms)
    , run_(run)
    , prompt_(prompt)
{
}

ExitCode CopySeries::Run(const Copy& copy)
{
    if (terms_.copies == 1) {
        return copy(1);
    }
    ExitCode worst = ExitCode::Done;
    for (std::uint32_t number = 1; number <= terms_.copies; ++number) {
        const ExitCode code = Make(number, copy);
        if (!IsMade(code)) {
            return EndEarly(code);
        }
        worst = code == ExitCode::Done ? worst : code;
    }
    context_.screen.Result(CountWords(terms_.copies));
    return worst;
}

ExitCode CopySeries::Make(std::uint32_t number, const Copy& copy)
{
    ExitCode code = FindDisc(number);
    if (code == ExitCode::Done) {
        code = copy(number);
    }
    return IsMade(code) ? HoldAgainstFirst(number, code) : code;
}

/// The copy itself looks for the first disc, as for a single burn.
ExitCode CopySeries::FindDisc(std::uint32_t number)
{
    const std::string heading
        = "Copie " + std::to_string(number) + " sur " + std::to_string(terms_.copies);
    const bool isAsked = terms_.assent == Assent::Asked;
    if (number > 1 && isAsked && prompt_ == DiscPrompt::OfSeries) {
        return AskForDisc(heading);
    }
    context_.screen.Notice(heading);
    return number == 1 || isAsked ? ExitCode::Done : TakeLoadedDisc();
}

ExitCode CopySeries::AskForDisc(const std::string& heading)
{
    using namespace shell::message_style;
    const QString request = QString::fromStdString(heading + " : insérez un disque vierge.");
    while (
        run_.Console().MsgBox(request, kOkCancel + kInformation, {}) == shell::MessageAnswer::Ok) {
        const std::string problem = ProblemOfDisc();
        if (problem.empty()) {
            return ExitCode::Done;
        }
        if (!context_.stopRequested()) {
            run_.Fail(problem);
            OpenTray();
        }
    }
    return context_.stopRequested() ? ExitCode::Stopped : ExitCode::Failed;
}

/// Nobody inserts another disc: the present one must do.
ExitCode CopySeries::TakeLoadedDisc()
{
    const std::string problem = ProblemOfDisc();
    if (context_.stopRequested()) {
        return ExitCode::Stopped;
    }
    return problem.empty() ? ExitCode::Done : run_.Fail(problem);
}

/// To follow "Erreur : "; empty for a blank disc.
std::string CopySeries::ProblemOfDisc()
{
    try {
        const MediaLook look = PullInAndLook(context_, run_.RecorderId());
        return look.hasDisc ? WhyNotBurnable(look) : "le lecteur est vide.";
    } catch (const runtime::RuntimeError& failure) {
        return DriveFailureText(failure);
    }
}

/// If the drive doesn't open its tray, the user does it by hand.
void CopySeries::OpenTray()
{
    runtime::ResumeNext([this] {
        const imapi::RecorderRef recorder = context_.mastering.CreateDiscRecorder();
        recorder->InitializeDiscRecorder(run_.RecorderId());
        recorder->EjectMedia();
    });
}

/// Each copy is made from the files as they are at its time, so the bytes have to be compared.
ExitCode CopySeries::HoldAgainstFirst(std::uint32_t number, ExitCode code)
{
    const WitnessedRecording* recording = context_.witness.LastRecording();
    const QByteArray digest = recording != nullptr ? recording->sha256 : QByteArray();
    if (number == 1) {
        firstDigest_ = digest;
    }
    if (digest == firstDigest_) {
        return code;
    }
    Warn(context_.screen,
        RemarkKind::OtherBytes,
        "Attention : cette copie n'a pas les mêmes octets que la première : ce qui est gravé a "
        "changé entre-temps, ou le disque est d'une autre sorte.");
    return ExitCode::Incomplete;
}

std::string CopySeries::CountWords(std::uint32_t made) const
{
    const std::string all = std::to_string(terms_.copies);
    if (made == 0) {
        return "Aucune des " + all + " copies n'est faite.";
    }
    std::string words = std::to_string(made) + (made == 1 ? " copie sur " : " copies sur ") + all
        + (made == 1 ? " est faite" : " sont faites");
    if (made < terms_.copies) {
        words += made == 1 ? " : la première" : " : les " + std::to_string(made) + " premières";
    }
    return words + ".";
}

/// A user who sees no results needs to know which discs are made.
ExitCode CopySeries::EndEarly(ExitCode code) const
{
    const std::string words = CountWords(run_.MadeDiscs());
    context_.screen.Result(words);
    if (code == ExitCode::Stopped) {
        context_.screen.Tell(JobRemark {.kind = RemarkKind::Stopped, .text = words});
    } else {
        context_.screen.Tell(Failure {.text = words});
    }
    return code;
}

} // namespace velmora::terminal
