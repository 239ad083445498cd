// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/Clock.h"
#include "runtime/EventPump.h"
#include "virtual/RecorderFolder.h"

#include <chrono>
#include <functional>
#include <future>

namespace velmora::virtualdrive {

/// What the work of one drive needs.
struct DriveContext {
    RecorderFolder folder;
    runtime::Clock& clock;
    runtime::EventPump& pump;

    /// Milliseconds since 1970.
    qint64 Now() const { return clock.Now().toMSecsSinceEpoch(); }

    /// Does something slow on another thread, while events are handled. Errors: those of the work.
    void Await(const std::function<void()>& work) const
    {
        constexpr std::chrono::milliseconds kBetweenEvents {20};
        std::future<void> done = std::async(std::launch::async, work);
        while (done.wait_for(kBetweenEvents) != std::future_status::ready) {
            pump.Pump();
        }
        done.get();
    }
};

} // namespace velmora::virtualdrive
