// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/Mastering.h"
#include "records/BurnRecords.h"
#include "runtime/Clock.h"
#include "terminal/arguments/DriveRequest.h"
#include "terminal/console/ExitCode.h"
#include "terminal/console/TerminalScreen.h"

namespace velmora::terminal {

/// Answers a query about the drives on the screen.
ExitCode RunDriveRequest(const DriveRequest& request,
    imapi::Mastering& mastering,
    const records::BurnRecords& records,
    runtime::Clock& clock,
    TerminalScreen& screen);

} // namespace velmora::terminal
