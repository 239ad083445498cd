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

void RunErase(EraseConsole& console, const DiscSurroundings& surroundings)
{
    surroundings.witness.AllowErase([&surroundings] { return !surroundings.stopRequested(); });
    surroundings.insistOnOrderlyEnd(true);
    const auto letGo = qScopeGuard([&surroundings] {
        surroundings.insistOnOrderlyEnd(false);
        surroundings.witness.AllowErase({});
    });
    recorder::RecorderState recorders;
    imapi::DiscFormat2EraseRef DataEraser;
    writing::EraseRun(console, recorders, surroundings.mastering, DataEraser).Run();
}

/// The run calls every erase a success that it has begun; the drive knows better.
ExitCode TellOutcome(const EraseConsole& console, const DiscSurroundings& surroundings)
{
    TerminalScreen& screen = surroundings.screen;
    const auto& failure = surroundings.witness.EraseFailure();
    if (surroundings.witness.HasErased()) {
        screen.Result("Disque : effacé");
        return ExitCode::Done;
    }
    if (surroundings.stopRequested()) {
        screen.Notice("Arrêté à votre demande : rien n'a été effacé.");
        return ExitCode::Stopped;
    }
    if (failure) {
        return Fail(screen, "l'effacement a échoué. " + DriveFailureText(*failure, {}));
    }
    if (!console.IsAgreed()) {
        return Fail(screen, "rien n'a été effacé, faute d'accord.");
    }
    return Fail(screen, "rien n'a été effacé : le lecteur est vide ou son disque ne s'efface pas.");
}

} // namespace

ExitCode EraseDisc(const EraseRequest& request, const DiscSurroundings& surroundings)
{
    const auto found = SurveyRecorders(surroundings.mastering);
    const auto place = ChooseRecorder(request.terms.recorder, found, surroundings.screen);
    if (!place) {
        return ExitCode::Failed;
    }
    EraseConsole console(
        surroundings, request.terms.assent, request.isFull, static_cast<qint16>(*place));
    try {
        RunErase(console, surroundings);
    } catch (const runtime::RuntimeError& failure) {
        return Fail(
            surroundings.screen, DriveFailureText(failure, found[*place].path.toStdString()));
    }
    return TellOutcome(console, surroundings);
}

} // namespace velmora::terminal
