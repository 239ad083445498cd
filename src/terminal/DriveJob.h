// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/Mastering.h"
#include "runtime/Clock.h"
#include "terminal/DriveRequest.h"
#include "terminal/ExitCode.h"
#include "terminal/TerminalScreen.h"

namespace velmora::terminal {

/// Answers a question about the drives on the screen.
ExitCode RunDriveRequest(const DriveRequest& request,
    imapi::Mastering& mastering,
    runtime::Clock& clock,
    TerminalScreen& screen);

} // namespace velmora::terminal
