// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/ConsoleMessages.h"
#include "terminal/console/ExitCode.h"
#include "terminal/disc/DiscComparison.h"
#include "terminal/disc/DiscContext.h"

#include <string>

namespace velmora::terminal {

/// Loads a burned disc again, which the run has put out, reads it back and says what came of it.
/// Only a disc whose every sector was read and found as written is called identical.
class ReadBack {
public:
    ReadBack(const DiscContext& context, Assent assent);

    /// @return Done for a disc that is identical, Incomplete when nothing could be compared, Failed
    ///         for a disc that is different or can't be read, Stopped
    ExitCode Run(const WitnessedRecording& recording);

private:
    void LoadDisc(drive::Drive& drive);
    bool IsThere(drive::Drive& drive);
    ExitCode Tell(const WitnessedRecording& recording, const Comparison& comparison);
    ExitCode TellNothingCompared(const std::string& reason);

    const DiscContext& context_;
    ConsoleMessages messages_;
    Assent assent_;
    ProgressLine progress_;
};

} // namespace velmora::terminal
