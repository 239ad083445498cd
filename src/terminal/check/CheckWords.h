// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/check/DiscCheck.h"
#include "terminal/console/ExitCode.h"
#include "terminal/console/TerminalScreen.h"

#include <QJsonObject>

#include <string>

namespace velmora::terminal {

/// Tells what came of a check.
/// @param basis  what the disc was held against, French
ExitCode TellFindings(
    TerminalScreen& screen, const std::string& basis, const CheckFindings& findings);

/// The same for another program, as a part of what a job tells.
QJsonObject FindingsObject(const std::string& basis, const CheckFindings& findings);

/// The same as a JSON text that stands for itself.
std::string FindingsJson(const std::string& basis, const CheckFindings& findings);

} // namespace velmora::terminal
