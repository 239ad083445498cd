// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/SideThread.h"

#include <QCoreApplication>
#include <QEvent>

#include <system_error>
#include <utility>

namespace velmora::wizard {

namespace {

/// The result of a piece of work, on its way to the program's thread.
class SideOutcome final : public QEvent {
public:
    SideOutcome(SideWork::Show show, std::stop_token stop)
        : QEvent(User)
        , show_(std::move(show))
        , stop_(std::move(stop))
    {
    }

    /// Checked again where it is shown: work dropped meanwhile isn't shown.
    void ShowIfWanted() const
    {
        if (!stop_.stop_requested()) {
            show_();
        }
    }

private:
    SideWork::Show show_;
    std::stop_token stop_;
};

/// Receives the results, and no other events.
class SideHome final : public QObject {
protected:
    void customEvent(QEvent* event) override { static_cast<SideOutcome*>(event)->ShowIfWanted(); }
};

} // namespace

SideThread::SideThread()
    : home_(std::make_unique<SideHome>())
{
}

SideThread::~SideThread() { newest_.request_stop(); }

void SideThread::Begin(Work work)
{
    Drop();
    newest_ = std::stop_source();
    {
        const std::lock_guard lock(mutex_);
        waiting_ = Task {std::move(work), newest_.get_token()};
    }
    wake_.notify_one();
    if (thread_.joinable()) {
        return;
    }
    try {
        thread_ = std::jthread([this](const std::stop_token& end) { Live(end); });
    } catch (const std::system_error&) {
        Drop();
    }
}

void SideThread::Drop()
{
    newest_.request_stop();
    const std::lock_guard lock(mutex_);
    waiting_.reset();
}

void SideThread::Live(const std::stop_token& end)
{
    while (const std::optional<Task> task = NextTask(end)) {
        Do(*task);
    }
}

/// None at the end.
std::optional<SideThread::Task> SideThread::NextTask(const std::stop_token& end)
{
    std::unique_lock lock(mutex_);
    if (!wake_.wait(lock, end, [this] { return waiting_.has_value(); })) {
        return std::nullopt;
    }
    return std::exchange(waiting_, std::nullopt);
}

void SideThread::Do(const Task& task)
{
    Show show = task.work(task.stop);
    if (show && !task.stop.stop_requested()) {
        QCoreApplication::postEvent(home_.get(), new SideOutcome(std::move(show), task.stop));
    }
}

} // namespace velmora::wizard
