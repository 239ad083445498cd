// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/DiscRun.h"

#include "drive/SectorSize.h"
#include "recorder/EnumerateRecorders.h"
#include "terminal/console/FrenchText.h"
#include "terminal/disc/DiscAftermath.h"
#include "terminal/disc/DiscRemarks.h"
#include "terminal/disc/RunExitCode.h"
#include "terminal/disc/RunTelling.h"
#include "terminal/drives/RecorderChoice.h"

#include <QScopeGuard>

namespace velmora::terminal {

DiscRun::DiscRun(const DiscContext& context, const DiscTerms& terms, Detail detail)
    : context_(context)
    , terms_(terms)
    , detail_(detail)
    , console_(context, terms.assent, state_)
    , clock_(context.clock, console_)
    , reading_(console_, state_)
    , progress_(console_, state_, companion_)
{
}

bool DiscRun::FindRecorder()
{
    const auto found = SurveyRecorders(context_.mastering);
    const auto place = ChooseRecorder(terms_.recorder, found, context_.screen);
    if (!place) {
        return false;
    }
    recorder::EnumerateRecorders(recorders_, context_.mastering);
    state_.SelectedRecorder = static_cast<qint16>(*place);
    recorderId_ = found[*place].id;
    return true;
}

ExitCode DiscRun::Do(writing::BurnOptions& options,
    const std::function<writing::RunReport(const writing::RunContext&)>& run)
{
    const writing::RunReport report = Conduct(options, run);
    madeDiscs_ += report.IsMade() ? 1 : 0;
    TellReport(context_.screen, report);
    return TellOutcome(report);
}

writing::RunReport DiscRun::Conduct(writing::BurnOptions& options,
    const std::function<writing::RunReport(const writing::RunContext&)>& run)
{
    context_.witness.ForgetRecording();
    context_.insistOnOrderlyEnd(true);
    const auto letGo = qScopeGuard([this] { context_.insistOnOrderlyEnd(false); });
    return run({.screen = console_,
        .options = options,
        .state = state_,
        .ListFile = list_,
        .mastering = context_.mastering,
        .clock = clock_,
        .reading = reading_,
        .recorders = recorders_,
        .companion = companion_,
        .progress = progress_});
}

ExitCode DiscRun::TellOutcome(const writing::RunReport& report)
{
    if (report.isWritten) {
        TellWritten(report);
    } else {
        TellUnwritten(report);
    }
    return ExitCodeOf(report);
}

void DiscRun::TellWritten(const writing::RunReport& report)
{
    TellSize();
    if (report.keepsOtherSums) {
        Warn(context_.screen, RemarkKind::OtherSums, OtherSumsText());
    }
    TellRemarks(report);
    TellComparison(report.comparison);
    if (report.FailedAfterwards()) {
        TellKeptDisc(report);
    }
    if (report.ending == writing::RunEnding::Stopped
        && report.comparison.end != imapi::ComparisonEnd::Stopped) {
        Warn(context_.screen,
            RemarkKind::Stopped,
            "Arrêté à votre demande, mais trop tard : le disque est gravé en entier.");
    }
}

void DiscRun::TellSize()
{
    const WitnessedRecording* recording = context_.witness.LastRecording();
    const qint64 sectors = recording != nullptr ? recording->sectors : 0;
    const auto bytes = static_cast<std::uint64_t>(sectors) * drive::kSectorBytes;
    const auto duration = console_.WriteDuration();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(duration);
    context_.screen.Result("Disque : " + SizeText(bytes) + " gravés"
        + (seconds.count() == 0
                ? std::string()
                : " en " + DurationText(seconds) + " (" + SpeedText(bytes, duration) + ")"));
}

/// The run has reported what is wrong with a disc, and why it wasn't compared.
void DiscRun::TellComparison(const imapi::DiscComparison& comparison)
{
    if (comparison.end == imapi::ComparisonEnd::Unwanted) {
        context_.screen.Result("Comparaison : non faite (--no-compare)");
    } else if (comparison.end == imapi::ComparisonEnd::Same) {
        const auto bytes = static_cast<std::uint64_t>(comparison.sectors) * drive::kSectorBytes;
        context_.screen.Result("Comparaison : " + SizeText(bytes)
            + " relus sur le disque, identiques à ce qui a été gravé");
        context_.screen.Result("SHA-256 : " + comparison.sha256.toHex().toStdString());
    }
}

/// The log has reported an error, which isn't the disc's.
void DiscRun::TellKeptDisc(const writing::RunReport& report)
{
    Warn(context_.screen,
        RemarkKind::AfterWrite,
        std::string("Attention : le disque est gravé, mais ")
            + (report.isEjected ? "le graveur n'a pas été libéré : " : "n'a pas été éjecté : ")
            + HarmlessText(report.errorText.toStdString()));
}

void DiscRun::TellRemarks(const writing::RunReport& report)
{
    RemarkList list(context_.screen, Product::Disc, detail_);
    const auto remarkOf = [](const auto& item) { return RemarkOf(item); };
    list.Show(RemarkKind::ChangedName, report.changedNames, remarkOf);
    list.Show(RemarkKind::NameHazard, report.nameHazards, remarkOf);
    list.Show(RemarkKind::LinkLeadingOut, report.linksLeadingOut, remarkOf);
    list.Show(RemarkKind::LeftOut, report.leftOut, remarkOf);
    list.Show(RemarkKind::PartlyHeld, report.partlyHeld, remarkOf);
    list.End();
}

void DiscRun::TellUnwritten(const writing::RunReport& report)
{
    const DiscAftermath left(context_, recorderId_);
    if (report.ending == writing::RunEnding::Stopped) {
        Warn(context_.screen,
            RemarkKind::Stopped,
            "Arrêté à votre demande : " + left.WordsOfStop(report.tookAllSectors));
    } else if (left.IsTouched()) {
        Fail("la gravure a échoué : " + left.Words());
    } else {
        const bool isUsedDisc = report.refusal == writing::Refusal::DiscNotBlank;
        Fail(left.Words() + (isUsedDisc ? left.AdviceToErase() : ""));
    }
}

ExitCode DiscRun::Fail(const std::string& text) { return terminal::Fail(context_.screen, text); }

} // namespace velmora::terminal
