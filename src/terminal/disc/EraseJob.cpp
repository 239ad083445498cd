// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/EraseJob.h"

#include "drive/PublishedCodes.h"
#include "runtime/RuntimeError.h"
#include "terminal/console/FrenchText.h"
#include "terminal/disc/EraseConsole.h"
#include "terminal/disc/RunReportJson.h"
#include "terminal/drives/DriveWords.h"
#include "terminal/drives/RecorderChoice.h"
#include "writing/EraseRun.h"

#include <QScopeGuard>

namespace velmora::terminal {

namespace {

writing::RunReport RunErase(EraseConsole& console, const DiscContext& context)
{
    context.witness.AllowErase([&context] { return !context.stopRequested(); });
    context.insistOnOrderlyEnd(true);
    const auto letGo = qScopeGuard([&context] {
        context.insistOnOrderlyEnd(false);
        context.witness.AllowErase({});
    });
    context.screen.Tell(PhaseProgress {JobPhase::Erasing});
    recorder::RecorderState recorders;
    imapi::DiscFormat2EraseRef DataEraser;
    return writing::EraseRun(console, recorders, context.mastering, DataEraser).Run();
}

/// The drive knows best whether the disc was erased; the run, in which words that failed.
ExitCode TellOutcome(const writing::RunReport& report, const DiscContext& context)
{
    TerminalScreen& screen = context.screen;
    const auto& failure = context.witness.EraseFailure();
    const bool wasBegun = context.witness.HasErased() || failure;
    if (context.witness.HasErased() && report.ending == writing::RunEnding::Done) {
        screen.Result("Disque : effacé");
        return ExitCode::Done;
    }
    if (context.stopRequested() && !context.witness.HasErased()) {
        const bool isUntouched = !failure || failure->Number() == drive::hresult::kCancelled;
        Warn(screen,
            RemarkKind::Stopped,
            "Arrêté à votre demande : "
                + (isUntouched ? "rien n'a été effacé."
                               : HarmlessText(failure->Description().toStdString())));
        return ExitCode::Stopped;
    }
    if (report.ending == writing::RunEnding::GivenUp) {
        return Fail(screen, "rien n'a été effacé, faute d'accord.");
    }
    const runtime::RuntimeError cause(report.errorNumber, report.errorText);
    return Fail(screen,
        (wasBegun ? "l'effacement a échoué. " : "rien n'a été effacé. ") + DriveFailureText(cause),
        cause.Number());
}

} // namespace

ExitCode RunErase(const EraseRequest& request, const DiscContext& context)
{
    const auto found = SurveyRecorders(context.mastering);
    const auto place = ChooseRecorder(request.terms.recorder, found, context.screen);
    if (!place) {
        return ExitCode::Failed;
    }
    EraseConsole console(
        context, request.terms.assent, request.isFull, static_cast<qint16>(*place));
    try {
        const writing::RunReport report = RunErase(console, context);
        context.screen.Tell(JobReport {[&report] { return RunReportObject(report); }});
        return TellOutcome(report, context);
    } catch (const runtime::RuntimeError& failure) {
        return Fail(context.screen, DriveFailureText(failure), failure.Number());
    }
}

} // namespace velmora::terminal
