// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/DiscRun.h"

#include "drive/SectorSize.h"
#include "recorder/EnumerateRecorders.h"
#include "terminal/console/FrenchText.h"
#include "terminal/disc/ReadBack.h"
#include "terminal/drives/RecorderChoice.h"

#include <QScopeGuard>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

} // namespace

DiscRun::DiscRun(const DiscSurroundings& surroundings, const DiscTerms& terms)
    : surroundings_(surroundings)
    , terms_(terms)
    , console_(surroundings, terms.assent, state_)
    , clock_(surroundings.clock, console_)
    , reading_(console_, state_)
    , progress_(console_, state_, companion_)
{
}

bool DiscRun::FindRecorder()
{
    const auto found = SurveyRecorders(surroundings_.mastering);
    const auto place = ChooseRecorder(terms_.recorder, found, surroundings_.screen);
    if (!place) {
        return false;
    }
    recorder::EnumerateRecorders(recorders_, surroundings_.mastering);
    state_.SelectedRecorder = static_cast<qint16>(*place);
    recorderId_ = found[*place].id;
    return true;
}

ExitCode DiscRun::Do(
    writing::BurnOptions& options, const std::function<void(const writing::RunContext&)>& run)
{
    {
        surroundings_.insistOnOrderlyEnd(true);
        const auto letGo = qScopeGuard([this] { surroundings_.insistOnOrderlyEnd(false); });
        run({.screen = console_,
            .options = options,
            .state = state_,
            .ListFile = list_,
            .mastering = surroundings_.mastering,
            .clock = clock_,
            .reading = reading_,
            .recorders = recorders_,
            .companion = companion_,
            .progress = progress_});
    }
    return TellOutcome();
}

ExitCode DiscRun::TellOutcome()
{
    const Recording* recording = surroundings_.witness.LastRecording();
    if (recording == nullptr || !recording->isWritten) {
        return TellUnwritten(recording);
    }
    TellWritten(*recording);
    if (surroundings_.stopRequested()) {
        surroundings_.screen.Notice("Le disque était déjà entièrement gravé quand l'arrêt est venu "
                                    "; rien n'a été comparé.");
        return ExitCode::Stopped;
    }
    ExitCode code = ExitCode::Done;
    if (terms_.comparesAfterwards) {
        code = ReadBack(surroundings_, terms_.assent).Run(*recording);
    } else {
        surroundings_.screen.Result("Comparaison : non faite (--no-verify)");
    }
    return code == ExitCode::Done && console_.MissingEntries() > 0 ? ExitCode::Incomplete : code;
}

void DiscRun::TellWritten(const Recording& recording)
{
    const auto bytes = static_cast<std::uint64_t>(recording.sectors) * drive::kSectorBytes;
    const auto duration = console_.WriteDuration();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(duration);
    surroundings_.screen.Result("Disque : " + SizeText(bytes) + " gravés"
        + (seconds.count() == 0
                ? std::string()
                : " en " + DurationText(seconds) + " (" + SpeedText(bytes, duration) + ")"));
    if (const int missing = console_.MissingEntries(); missing > 0) {
        surroundings_.screen.Result(
            "Éléments absents du disque : " + NumberText(static_cast<std::uint64_t>(missing)));
    }
}

ExitCode DiscRun::TellUnwritten(const Recording* recording)
{
    const bool isBegun = recording != nullptr && recording->digests.Bytes() > 0;
    if (surroundings_.stopRequested()) {
        surroundings_.screen.Notice(std::string("Arrêté à votre demande : ")
            + (isBegun ? "le disque est inachevé et ne peut pas servir." : "rien n'a été gravé."));
        return ExitCode::Stopped;
    }
    if (isBegun) {
        return Fail("la gravure a échoué : le disque est inachevé et ne peut pas servir.");
    }
    const bool isUsedDisc = console_.Label14().contains(u"vierge"_s);
    return Fail(std::string("rien n'a été gravé.")
        + (isUsedDisc ? " Un disque réinscriptible s'efface par « velmora-cli erase »." : ""));
}

ExitCode DiscRun::Fail(const std::string& text)
{
    surroundings_.screen.Notice("Erreur : " + text);
    return ExitCode::Failed;
}

} // namespace velmora::terminal
