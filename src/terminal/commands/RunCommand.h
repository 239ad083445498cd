// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mastering/base/MasteringContext.h"
#include "records/BurnRecords.h"
#include "runtime/Clock.h"
#include "runtime/EventPump.h"
#include "terminal/arguments/CommandLine.h"
#include "terminal/arguments/OutputForm.h"
#include "terminal/console/ExitCode.h"
#include "terminal/console/TerminalScreen.h"

#include <functional>
#include <memory>

namespace velmora::terminal {

/// What a task about drives depends on.
struct DriveTaskContext {
    runtime::EventPump& pump;
    runtime::Clock& clock;
    mastering::DriveSources sources; ///< in the order of the list of recorders
    /// Keeps the machine awake while its result is held.
    std::function<std::shared_ptr<void>()> hold;
};

/// A command about drives, which still lacks them.
using DriveTask = std::function<ExitCode(const DriveTaskContext&)>;

/// Runs a command line, and shows the result.
/// @param output      in which form, and of which command
/// @param screen  gets the lines of that form
/// @param records     of the user's burns: new ones are kept there
/// @param withDrives  runs a task with the drives of the machine. Called only for a command that
///                    needs them, as they take an event loop.
ExitCode RunCommand(const Command& command,
    const OutputChoice& output,
    TerminalScreen& screen,
    const records::BurnRecords& records,
    const std::function<ExitCode(const DriveTask&)>& withDrives);

} // namespace velmora::terminal
