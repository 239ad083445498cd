// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/TerminalScreen.h"
#include "writing/RunReport.h"

namespace velmora::terminal {

/// Reports by its meaning what the log of a run has told in lines: why it failed, what is known
/// about the disc, which files changed; and passes on the whole report.
void TellReport(TerminalScreen& screen, const writing::RunReport& report);

/// The whole report, for whoever takes it.
/// @param report  must outlive what is returned
JobReport JobReportOf(const writing::RunReport& report);

} // namespace velmora::terminal
