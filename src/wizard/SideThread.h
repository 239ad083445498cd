// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/SideWork.h"

#include <QObject>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

namespace velmora::wizard {

/// One background thread, started with the first piece of work. Created, called and destroyed on
/// the program's thread; the destructor waits for the work to give up.
class SideThread final : public SideWork {
public:
    SideThread();
    ~SideThread() override;

    /// If the system can't start a thread, nothing is ever shown.
    void Begin(Work work) override;
    void Drop() override;

private:
    struct Task {
        Work work;
        std::stop_token stop;
    };

    void Live(const std::stop_token& end);
    std::optional<Task> NextTask(const std::stop_token& end);
    void Do(const Task& task);

    std::unique_ptr<QObject> home_; // its thread gets the results
    std::stop_source newest_ {std::nostopstate};
    std::mutex mutex_; // of what follows
    std::condition_variable_any wake_;
    std::optional<Task> waiting_;
    std::jthread thread_; // ends before what it uses
};

} // namespace velmora::wizard
