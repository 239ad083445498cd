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

/// What came of a run, for somebody who isn't there.
struct RunOutcome {
    RunNotice notice {};     ///< without an outcome: nothing to tell
    bool mustBeSeen = false; ///< the window doesn't go before a person has seen it
};

/// How the program answers what a person wants: an error that no answer has taken care of is told,
/// and ends the program only where it is meant to; what takes long comes one at a time, and the
/// desktop attends what works on a disc.
class Handlers {
public:
    using Answer = std::function<void()>;

    /// @param messages  tells of errors; must outlive the handlers
    /// @param after     called after every answer
    Handlers(shell::MessageDoor& messages, RunAttendance attendance, Answer after);
    Handlers(const Handlers&) = delete;
    Handlers& operator=(const Handlers&) = delete;

    /// Answers at once.
    void Run(const Answer& answer, AfterError then = AfterError::GoOn);
    /// The same for what takes long: nothing happens while something else does.
    void RunTask(const Answer& task, AfterError then = AfterError::GoOn);

    /// Makes an answer into one for a page. The handlers must outlive the page's use of it.
    Answer Click(Answer answer);
    /// The same for a task that works on a disc.
    /// @param work  what the machine is kept awake for, as a person reads it
    Answer AttendedRun(
        QString work, std::function<RunOutcome()> run, AfterError then = AfterError::GoOn);

    bool IsTaskRunning() const { return tasks_.IsRunning(); }
    /// The last task came to an end that a person must see.
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
