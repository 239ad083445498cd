// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/RunTelling.h"

#include "terminal/console/FrenchText.h"
#include "terminal/disc/DiscRemarks.h"
#include "terminal/disc/RunReportJson.h"
#include "writing/ComparisonWords.h"

#include <QStringList>

namespace velmora::terminal {

using namespace Qt::StringLiterals;

namespace {

std::string Harmless(const QString& text) { return HarmlessText(text.toStdString()); }

JobEnding EndingOf(writing::RunEnding ending)
{
    switch (ending) {
    case writing::RunEnding::Refused:
        return JobEnding::Refused;
    case writing::RunEnding::GivenUp:
        return JobEnding::GivenUp;
    default:
        return JobEnding::AsItsExitCode;
    }
}

void TellCause(TerminalScreen& screen, const writing::RunReport& report)
{
    if (report.errorNumber == 0 || report.FailedAfterwards()) {
        return;
    }
    const QString limit = report.limitMet.isEmpty() ? QString() : u" "_s + report.limitMet;
    screen.Tell(Failure {.text = Harmless(report.errorText + limit), .number = report.errorNumber});
}

void TellComparison(TerminalScreen& screen, const imapi::DiscComparison& comparison)
{
    const auto tell = [&](RemarkKind kind) {
        screen.Tell(
            JobRemark {.kind = kind, .text = Harmless(writing::WordsOf(comparison).join(u' '))});
    };
    if (comparison.end == imapi::ComparisonEnd::Stopped) {
        tell(RemarkKind::Stopped);
    } else if (comparison.end == imapi::ComparisonEnd::Impossible) {
        tell(RemarkKind::NotCompared);
    }
    for (const imapi::HurtFile& file : comparison.hurtFiles) {
        screen.Tell(RemarkOf(file));
    }
}

} // namespace

void TellReport(TerminalScreen& screen, const writing::RunReport& report)
{
    TellCause(screen, report);
    TellComparison(screen, report.comparison);
    for (const text::ProgramPath& path : report.changedSources) {
        screen.Tell(RemarkOfChangedSource(path));
    }
    for (const text::ProgramPath& path : report.hiddenEntries) {
        screen.Tell(RemarkOfHiddenEntry(path));
    }
    for (const QString& remark : report.remarks) {
        screen.Tell(JobRemark {.kind = RemarkKind::AfterWrite, .text = Harmless(remark)});
    }
    screen.Tell(JobReportOf(report));
}

JobReport JobReportOf(const writing::RunReport& report)
{
    return {
        .object = [&report] { return RunReportObject(report); }, .ending = EndingOf(report.ending)};
}

} // namespace velmora::terminal
