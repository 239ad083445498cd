// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/BurnRecords.h"
#include "terminal/arguments/CheckRequest.h"
#include "terminal/console/ExitCode.h"
#include "terminal/console/TerminalScreen.h"

#include <string>

namespace velmora::terminal {

/// Lists the records of burns, or forgets them.
ExitCode RunBurnsRequest(
    const BurnsRequest& request, const records::BurnRecords& records, TerminalScreen& screen);

/// The moment of a burn, in local time: "22/11/2026 08:30".
std::string MomentText(const records::BurnRecord& record);

} // namespace velmora::terminal
