// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "runtime/ProgressEstimate.h"
#include "terminal/console/ProgressLine.h"
#include "terminal/console/TerminalScreen.h"

#include <QtGlobal>

namespace velmora::terminal {

/// Shows a write as the drive reports it: phase, percent, speed, buffer and time left. A terminal
/// gets one changing line, a pipe a line for each tenth.
class BurnProgress {
public:
    BurnProgress(TerminalScreen& screen, SteadyClock clock);

    void Show(const drive::WriteProgress& progress);

    /// Whether a write is going on, so that its line mustn't be overwritten.
    bool IsShowing() const { return isShowing_; }
    /// The write is over: the line is gone.
    void End();
    /// From the drive's first report to its last one.
    std::chrono::milliseconds Duration() const;

private:
    void EnterPhase(drive::WriteAction action);
    void ShowWaiting();
    void ShowWriting(const drive::WriteProgress& progress);

    TerminalScreen& screen_;
    SteadyClock clock_;
    bool isShowing_ = false;
    drive::WriteAction action_ = drive::WriteAction::ValidatingMedia;
    SteadyTime begun_ {};
    SteadyTime heard_ {};
    runtime::ProgressEstimate estimate_; // of the phase, in bytes
    SteadyTime shown_ {};
    qint64 tenthsTold_ = 0;
};

} // namespace velmora::terminal
