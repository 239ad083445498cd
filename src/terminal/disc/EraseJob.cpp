// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/EraseJob.h"

#include "runtime/RuntimeError.h"
#include "terminal/console/FrenchText.h"
#include "terminal/disc/EraseConsole.h"
#include "terminal/disc/RunTelling.h"
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

std::string UnerasedText(const writing::RunReport& report)
{
    const bool isUntouched = report.eraseExtent == writing::EraseExtent::Untouched;
    return (isUntouched ? "rien n'a été effacé. " : "l'effacement a échoué. ")
        + DriveFailureText(runtime::RuntimeError(report.errorNumber, report.errorText));
}

ExitCode TellOutcome(const writing::RunReport& report, TerminalScreen& screen)
{
    switch (report.ending) {
    case writing::RunEnding::Done:
        screen.Result("Disque : effacé");
        return ExitCode::Done;
    case writing::RunEnding::Stopped:
        Warn(screen,
            RemarkKind::Stopped,
            "Arrêté à votre demande : "
                + (report.eraseExtent == writing::EraseExtent::Untouched
                        ? "rien n'a été effacé."
                        : HarmlessText(report.errorText.toStdString())));
        return ExitCode::Stopped;
    case writing::RunEnding::GivenUp:
        return Fail(screen, "rien n'a été effacé, faute d'accord.");
    case writing::RunEnding::NotBegun:
    case writing::RunEnding::Refused:
    case writing::RunEnding::Failed:
        break;
    }
    return Fail(screen, UnerasedText(report), report.errorNumber);
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
        context.screen.Tell(JobReportOf(report));
        return TellOutcome(report, context.screen);
    } catch (const runtime::RuntimeError& failure) {
        return Fail(context.screen, DriveFailureText(failure), failure.Number());
    }
}

} // namespace velmora::terminal
