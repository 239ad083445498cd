// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/check/DiscCheck.h"
#include "terminal/console/ExitCode.h"
#include "terminal/console/TerminalScreen.h"

#include <QJsonObject>

#include <string>

namespace velmora::terminal {

/// Reports the result of a check.
/// @param basis  what the disc was compared with, French
ExitCode TellFindings(
    TerminalScreen& screen, const std::string& basis, const CheckFindings& findings);

/// The same for another program, as a part of a job's report.
QJsonObject FindingsObject(const std::string& basis, const CheckFindings& findings);

/// The same as a self-contained JSON text.
std::string FindingsJson(const std::string& basis, const CheckFindings& findings);

} // namespace velmora::terminal
