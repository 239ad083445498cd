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
    Taking,     ///< it becomes ready and tells of its disc; nothing is written
    Erasing,    ///< what formats in the course of an erase included
    Formatting, ///< before a write
    Writing,
    Closing, ///< all sectors are written, and the track, session or disc is ended
    LettingGo,
};

/// Sees to it that no step lasts for ever.
///
/// The burning library waits an hour for a drive that says that it is busy, and without an end for
/// one that has lost its disc while it erases; a wish to stop it hears at few places only. When a
/// step doesn't move any more for longer than a sound drive may need, or when it is to be stopped,
/// the drive is taken away from the library: its handles lead nowhere from then on, and every wait
/// of the library ends with the next command that it sends.
class StepWatch {
public:
    /// @param clock  asked on the calling thread only
    StepWatch(QString device, const runtime::Clock& clock);

    // On the library's thread:

    /// A step begins, or goes on if it is the one that was begun last.
    /// @param limit  the time without any movement that it may take, where the usual one of the
    ///               step doesn't fit
    void Enter(Step step, std::optional<std::chrono::seconds> limit = {});
    /// Something has moved: the time of the step begins anew.
    void Move();
    /// Takes the drive away from the library, for a reason that the library has told.
    void TakeAway() const;

    // On the calling thread:

    /// The step is to end, as soon as that leaves the disc no worse than it need be.
    void Stop() { stops_ = true; }
    /// Takes the drive away if it is time for that. To be called all the time.
    void Look();
    /// Raises why the drive was taken away; nothing if it was not, or if only the letting go of it
    /// hung, when all was done.
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

    State Now() const;
    std::optional<Reason> ReasonToEnd(const State& state);

    QString device_;
    const runtime::Clock& clock_;
    mutable std::mutex mutex_;
    State state_;
    std::atomic<bool> stops_ = false;
    // Of the calling thread:
    int seenMoves_ = -1;
    double movedAt_ = 0;
    std::optional<double> stoppedAt_;
    std::optional<Ending> ending_;
};

} // namespace velmora::drives
