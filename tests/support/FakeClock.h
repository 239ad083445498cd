// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/Clock.h"
#include "runtime/EventPump.h"

#include <functional>
#include <utility>

namespace velmora::test {

/// Counts the pumps, and at each of them plays the user as the test wants.
class FakePump final : public runtime::EventPump {
public:
    void Pump() override
    {
        ++pumps;
        if (onPump) onPump();
    }

    int pumps = 0;
    std::function<void()> onPump;
};

/// A clock whose pauses end at once: they only advance its time, and pump once.
class FakeClock final : public runtime::Clock {
public:
    explicit FakeClock(runtime::EventPump& pump, QDateTime start = {})
        : pump_(pump)
        , start_(std::move(start))
    {
    }

    double Timer() const override { return seconds_; }
    QDateTime Now() const override { return start_.addMSecs(static_cast<qint64>(seconds_ * 1000)); }
    void Pause(double seconds) override
    {
        pump_.Pump();
        seconds_ += seconds;
    }

private:
    runtime::EventPump& pump_;
    QDateTime start_;
    double seconds_ = 0;
};

} // namespace velmora::test
