// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/WizardContext.h"
#include "wizard/rules/OneTaskAtATime.h"
#include "wizard/rules/ReportUnhandled.h"
#include "wizard/rules/RunNotice.h"

#include <functional>
#include <utility>

namespace velmora::shell {
class MessageDoor;
}

namespace velmora::wizard {

/// The outcome of a run, for a user who is away.
struct RunOutcome {
    RunNotice notice {};     ///< without an outcome: nothing to report
    bool mustBeSeen = false; ///< the window stays until the user has seen it
};

/// How the program handles the user's requests: an error that no handler has dealt with is
/// reported, and ends the program only if meant to; long tasks run one at a time, with the
/// desktop's services while they work on a disc.
class Handlers {
public:
    using Answer = std::function<void()>;

    /// @param messages  reports errors; must outlive the handlers
    /// @param after  called after every handler
    Handlers(shell::MessageDoor& messages, RunAttendance attendance, Answer after);
    Handlers(const Handlers&) = delete;
    Handlers& operator=(const Handlers&) = delete;

    /// Runs a handler at once.
    void Run(const Answer& answer, AfterError then = AfterError::GoOn);
    /// The same for a long task: does nothing while another one runs.
    void RunTask(const Answer& task, AfterError then = AfterError::GoOn);

    /// Wraps a handler for a page. This object must outlive the page's use of it.
    Answer Click(Answer answer);
    /// The same for a task that works on a disc.
    /// @param work  why the machine is kept awake, as the user reads it
    Answer AttendedRun(
        QString work, std::function<RunOutcome()> run, AfterError then = AfterError::GoOn);

    bool IsTaskRunning() const { return tasks_.IsRunning(); }
    /// Whether the last task ended in a way that the user must see.
    bool HasNewsToSee() const { return hasNewsToSee_; }
    /// Called each time a task has ended.
    void OnTaskEnd(Answer listener) { tasks_.OnEnd(std::move(listener)); }

private:
    void Tell(const runtime::RuntimeError& failure, AfterError then);
    void Attend(const QString& work, const std::function<RunOutcome()>& run);

    shell::MessageDoor& messages_;
    RunAttendance attendance_;
    Answer after_;
    OneTaskAtATime tasks_;
    bool hasNewsToSee_ = false;
};

} // namespace velmora::wizard
