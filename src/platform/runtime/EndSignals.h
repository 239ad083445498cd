// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSocketNotifier>

#include <array>
#include <functional>

namespace velmora::runtime {

/// Is that signal ignored, as nohup and the shells' background jobs start a program?
bool IsIgnored(int signal);

/// Turns SIGTERM, SIGHUP and SIGINT into a call from the event loop, for its lifetime: the program
/// can finish its work in an orderly way. Signals that the process was started to ignore stay
/// ignored. Only one may exist at a time, on the thread of the event loop.
class EndSignals {
public:
    /// @param handler  called for each signal
    explicit EndSignals(std::function<void()> handler);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    EndSignals(EndSignals&&) = delete;
    EndSignals& operator=(EndSignals&&) = delete;

private:
    std::array<int, 2> pipe_; // a signal handler can do no more than write a byte
    QSocketNotifier notifier_;
};

} // namespace velmora::runtime
