// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/Handlers.h"

#include "runtime/RuntimeError.h"
#include "wizard/rules/ReportUnhandled.h"

#include <QApplication>

#include <cstdlib>
#include <utility>

namespace velmora::wizard {

Handlers::Handlers(shell::MessageDoor& messages, RunAttendance attendance, Answer after)
    : messages_(messages)
    , attendance_(std::move(attendance))
    , after_(std::move(after))
{
}

void Handlers::Run(const Answer& answer)
{
    try {
        answer();
    } catch (const runtime::RuntimeError& failure) {
        ReportUnhandled(failure, messages_);
        QApplication::exit(EXIT_FAILURE);
    }
    after_();
}

void Handlers::RunTask(const Answer& task)
{
    Run([this, &task] {
        tasks_.Run([this, &task] {
            hasNewsToSee_ = false;
            task();
        });
    });
}

Handlers::Answer Handlers::Click(Answer answer)
{
    return [this, answer = std::move(answer)] { Run(answer); };
}

Handlers::Answer Handlers::AttendedRun(std::function<RunOutcome()> run)
{
    return [this, run = std::move(run)] { RunTask([this, &run] { Attend(run); }); };
}

void Handlers::Attend(const std::function<RunOutcome()>& run)
{
    const auto held = attendance_.hold ? attendance_.hold() : nullptr;
    const RunOutcome outcome = run();
    hasNewsToSee_ = outcome.mustBeSeen;
    if (attendance_.tell && !outcome.words.isEmpty() && QApplication::activeWindow() == nullptr) {
        attendance_.tell(outcome.words);
    }
}

} // namespace velmora::wizard
