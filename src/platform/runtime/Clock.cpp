// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/Clock.h"

#include "runtime/EventPump.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace velmora::runtime {

namespace {

constexpr double kNanosecondsPerSecond = 1e9;
// Short enough for a smooth window, long enough to leave the processor alone.
constexpr double kLongestSleepSeconds = 0.01;

} // namespace

SystemClock::SystemClock(EventPump& pump)
    : pump_(pump)
{
    elapsed_.start();
}

double SystemClock::Timer() const
{
    return static_cast<double>(elapsed_.nsecsElapsed()) / kNanosecondsPerSecond;
}

QDateTime SystemClock::Now() const { return QDateTime::currentDateTime(); }

void SystemClock::Pause(double seconds)
{
    const double end = Timer() + seconds;
    double left = seconds;
    while (left > 0) {
        pump_.Pump();
        const double sleep = std::min(left, kLongestSleepSeconds);
        std::this_thread::sleep_for(std::chrono::duration<double>(sleep));
        left = end - Timer();
    }
}

} // namespace velmora::runtime
