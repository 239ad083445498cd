// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "drives/Formatting.h"
#include "runtime/Clock.h"

#include <QtGlobal>

#include <atomic>
#include <exception>

namespace velmora::drives {

/// What the library's thread tells the calling thread about an erase.
struct EraseBoard {
    static constexpr int kAll = kAllDone;
    std::atomic<int> done = 0;   ///< of kAll; 0 if the drive doesn't tell
    std::atomic<int> guess = 90; ///< seconds, before the drive tells
};

/// Tells elapsed and expected seconds on the calling thread, every half second.
class EraseTeller {
public:
    EraseTeller(
        const EraseBoard& board, const drive::EraseReport& report, const runtime::Clock& clock);

    void Tell();
    /// Has the report asked for a stop?
    bool Stops() const { return stops_; }
    /// Reports the end, with the elapsed time as the expected total.
    void TellEnd();
    double Elapsed() const { return clock_.Timer() - begun_; }
    /// Raises what the report raised.
    void RaiseFailure() const;

private:
    void TellSeconds(int elapsed, int expected);

    const EraseBoard& board_;
    const drive::EraseReport& report_;
    const runtime::Clock& clock_;
    double begun_;
    double lastTold_;
    bool stops_ = false;
    std::exception_ptr failure_;
};

/// Erases the disc of a drive that was grabbed for it. On the library's thread.
/// Errors: those of drive::Drive::Erase.
void EraseDisc(burn::burn_drive* drive, bool full, EraseBoard& board, StepWatch& watch);

} // namespace velmora::drives
