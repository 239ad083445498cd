// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <utility>

namespace velmora::wizard {

/// Lets one long task run at a time. A task handles events while it runs, so the user may click on
/// what would start a second one, or close the window: the second start does nothing, and a
/// callback tells when the task is over.
class OneTaskAtATime {
public:
    /// Called each time a task has ended, also with an exception.
    void OnEnd(std::function<void()> listener) { listener_ = std::move(listener); }

    bool IsRunning() const { return isRunning_; }

    template <class Task> void Run(Task&& task)
    {
        if (isRunning_) {
            return;
        }
        const Turn turn(*this);
        std::forward<Task>(task)();
    }

private:
    class Turn {
    public:
        explicit Turn(OneTaskAtATime& owner)
            : owner_(owner)
        {
            owner_.isRunning_ = true;
        }
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;
        ~Turn()
        {
            owner_.isRunning_ = false;
            if (owner_.listener_) {
                owner_.listener_();
            }
        }

    private:
        OneTaskAtATime& owner_;
    };

    bool isRunning_ = false;
    std::function<void()> listener_;
};

} // namespace velmora::wizard
