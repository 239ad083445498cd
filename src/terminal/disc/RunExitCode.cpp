// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/RunExitCode.h"

namespace velmora::terminal {

using imapi::ComparisonEnd;

ExitCode ExitCodeOf(const writing::RunReport& report)
{
    const bool isStopped = report.ending == writing::RunEnding::Stopped;
    if (!report.isWritten) {
        return isStopped ? ExitCode::Stopped : ExitCode::Failed;
    }
    switch (report.comparison.end) {
    case ComparisonEnd::Hurt:
        return ExitCode::Failed;
    case ComparisonEnd::Stopped:
        return ExitCode::Stopped;
    case ComparisonEnd::NotBegun:
    case ComparisonEnd::Impossible:
        return ExitCode::Incomplete;
    case ComparisonEnd::Same:
    case ComparisonEnd::Unwanted:
        break;
    }
    const bool isWhole = report.leftOut.empty() && report.changedSources.empty();
    const ExitCode made = isWhole ? ExitCode::Done : ExitCode::Incomplete;
    return isStopped ? ExitCode::Stopped : made;
}

} // namespace velmora::terminal
