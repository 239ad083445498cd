// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/EraseJob.h"

#include "runtime/RuntimeError.h"
#include "terminal/disc/EraseConsole.h"
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
    recorder::RecorderState recorders;
    imapi::DiscFormat2EraseRef DataEraser;
    return writing::EraseRun(console, recorders, context.mastering, DataEraser).Run();
}

/// The drive knows best whether the disc was erased, and in which words that failed.
ExitCode TellOutcome(const writing::RunReport& report, const DiscContext& context)
{
    TerminalScreen& screen = context.screen;
    const auto& failure = context.witness.EraseFailure();
    if (context.witness.HasErased()) {
        screen.Result("Disque : effacé");
        return ExitCode::Done;
    }
    if (context.stopRequested()) {
        screen.Notice("Arrêté à votre demande : rien n'a été effacé.");
        return ExitCode::Stopped;
    }
    if (failure) {
        return Fail(screen, "l'effacement a échoué. " + DriveFailureText(*failure, {}));
    }
    if (report.ending == writing::RunEnding::GivenUp) {
        return Fail(screen, "rien n'a été effacé, faute d'accord.");
    }
    return Fail(screen, "rien n'a été effacé : le lecteur est vide ou son disque ne s'efface pas.");
}

} // namespace

ExitCode EraseDisc(const EraseRequest& request, const DiscContext& context)
{
    const auto found = SurveyRecorders(context.mastering);
    const auto place = ChooseRecorder(request.terms.recorder, found, context.screen);
    if (!place) {
        return ExitCode::Failed;
    }
    EraseConsole console(
        context, request.terms.assent, request.isFull, static_cast<qint16>(*place));
    try {
        return TellOutcome(RunErase(console, context), context);
    } catch (const runtime::RuntimeError& failure) {
        return Fail(context.screen, DriveFailureText(failure, found[*place].path.toStdString()));
    }
}

} // namespace velmora::terminal
