// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/Handlers.h"

#include "runtime/RuntimeError.h"
#include "wizard/AwakeAtWork.h"
#include "wizard/BoxWatch.h"

#include <QApplication>

#include <cstdlib>
#include <memory>
#include <new>
#include <utility>

namespace velmora::wizard {

Handlers::Handlers(shell::MessageDoor& messages, RunAttendance attendance, Answer after)
    : messages_(messages)
    , attendance_(std::move(attendance))
    , after_(std::move(after))
{
}

void Handlers::Run(const Answer& answer, AfterError then)
{
    try {
        answer();
    } catch (const runtime::RuntimeError& failure) {
        Tell(failure, then);
    } catch (const std::bad_alloc&) {
        Tell(runtime::RuntimeError(runtime::error::kOutOfMemory), then);
    }
    after_();
}

void Handlers::Tell(const runtime::RuntimeError& failure, AfterError then)
{
    ReportUnhandled(failure, then, messages_);
    if (then == AfterError::End) {
        QApplication::exit(EXIT_FAILURE);
    }
}

void Handlers::RunTask(const Answer& task, AfterError then)
{
    Run(
        [this, &task] {
            tasks_.Run([this, &task] {
                hasNewsToSee_ = false;
                task();
            });
        },
        then);
}

Handlers::Answer Handlers::Click(Answer answer)
{
    return [this, answer = std::move(answer)] { Run(answer); };
}

Handlers::Answer Handlers::AttendedRun(
    QString work, std::function<RunOutcome()> run, AfterError then)
{
    return [this, work = std::move(work), run = std::move(run), then] {
        RunTask([this, &work, &run] { Attend(work, run); }, then);
    };
}

void Handlers::Attend(const QString& work, const std::function<RunOutcome()>& run)
{
    const AwakeAtWork awake(attendance_.hold, work);
    const auto watch = attendance_.call ? std::make_unique<BoxWatch>(attendance_.call) : nullptr;
    const RunOutcome outcome = run();
    hasNewsToSee_ = outcome.mustBeSeen;
    const bool isNews = outcome.notice.outcome != Outcome::None;
    if (attendance_.tell && isNews && QApplication::activeWindow() == nullptr) {
        attendance_.tell(outcome.notice);
    }
}

} // namespace velmora::wizard
