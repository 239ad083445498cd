// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QElapsedTimer>

namespace velmora::runtime {

class EventPump;

/// Time as the program sees it; injected, so that tests needn't wait.
class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    /// Seconds since some fixed moment; never goes back, not even at midnight.
    virtual double Timer() const = 0;

    /// The local date and time.
    virtual QDateTime Now() const = 0;

    /// Waits that many seconds while handling events.
    virtual void Pause(double seconds) = 0;
};

/// The machine's clock.
class SystemClock final : public Clock {
public:
    explicit SystemClock(EventPump& pump);

    double Timer() const override;
    QDateTime Now() const override;
    void Pause(double seconds) override;

private:
    EventPump& pump_;
    QElapsedTimer elapsed_;
};

} // namespace velmora::runtime
