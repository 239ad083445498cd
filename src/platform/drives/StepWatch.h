// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/Clock.h"

#include <QString>
#include <QtGlobal>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>

namespace velmora::drives {

/// What the library's thread does with a drive.
enum class Step : std::uint8_t {
    Taking,     ///< it becomes ready and reports its disc; nothing is written
    Erasing,    ///< including formatting as part of an erase
    Formatting, ///< before a write
    Writing,
    Closing, ///< all sectors are written, and the track, session or disc is ended
    LettingGo,
};

/// Makes sure that no step lasts for ever.
///
/// The burning library waits an hour for a drive that says that it is busy, and for ever for one
/// that has lost its disc while erasing; it honours a stop only at a few places. When a step makes
/// no progress for longer than a sound drive may need, or when it should stop, the drive is taken
/// away from the library: from then on its handles lead nowhere, and every wait of the library ends
/// with the next command that it sends.
class StepWatch {
public:
    /// @param clock  asked on the calling thread only
    StepWatch(QString device, const runtime::Clock& clock);

    // On the library's thread:

    /// A step begins, or continues if it was the last one begun. If the drive is being taken away,
    /// it begins without it.
    /// @param limit  the time that it may take without progress, if the usual one of the
    ///               step doesn't fit
    void Enter(Step step, std::optional<std::chrono::seconds> limit = {});
    /// There was progress: the time of the step starts again.
    void Move();
    /// Takes the drive away from the library, for a reason that the library has reported.
    void TakeAway() const;

    // On the calling thread:

    /// The step should end, as soon as that does no needless damage to the disc.
    void Stop() { stops_ = true; }
    /// Takes the drive away if it is time for that. Call it at every poll.
    void Look();
    /// Raises why the drive was taken away; nothing if it wasn't, or if only releasing it hung
    /// after all was done.
    /// Errors: C0AA0002 (stopped), 80AA0907 (...in an erase), C0AA020D (it took too long), 80AA0906
    /// (...an erase).
    void RaiseFailure() const;

    bool Stops() const { return stops_; }

private:
    enum class Reason : std::uint8_t { TookTooLong, Stopped };
    struct State {
        Step step = Step::Taking;
        std::chrono::seconds limit {};
        int moves = 0;
    };
    struct Ending {
        Step step;
        Reason reason;
    };

    std::optional<Reason> ReasonToEnd(const State& state);

    QString device_;
    const runtime::Clock& clock_;
    std::mutex mutex_;
    State state_;
    std::atomic<bool> stops_ = false;
    std::optional<Ending> ending_; // written by the calling thread
    // Of the calling thread:
    int seenMoves_ = -1;
    double movedAt_ = 0;
    std::optional<double> stoppedAt_;
};

} // namespace velmora::drives
