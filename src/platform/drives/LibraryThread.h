// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/EventPump.h"

#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace velmora::drives {

/// The one thread that all calls of the burning library are made on, for all drives, as its state
/// is global. The caller's thread handles events meanwhile.
class LibraryThread {
public:
    LibraryThread() = default;
    ~LibraryThread();
    LibraryThread(const LibraryThread&) = delete;
    LibraryThread& operator=(const LibraryThread&) = delete;
    LibraryThread(LibraryThread&&) = delete;
    LibraryThread& operator=(LibraryThread&&) = delete;

    /// Runs the work there and returns when it is done; what it raised is raised here.
    /// @param pump       called without a gap over 40 ms
    /// @param meanwhile  called before each pump, on the calling thread, and on to the end of the
    ///                   work when a pump has raised something; may be empty
    /// Errors: C0AA0207 from within a pump or a meanwhile: an event handler made a second call.
    void Run(runtime::EventPump& pump,
        const std::function<void()>& work,
        const std::function<void()>& meanwhile = {});

private:
    void Start();
    void Loop();
    bool WaitForEnd();
    void WaitQuietly(const std::function<void()>& meanwhile);
    void WaitPumping(runtime::EventPump& pump, const std::function<void()>& meanwhile);

    std::mutex mutex_;
    std::condition_variable changed_;
    std::thread thread_;
    bool isRunning_ = false; // of the calling thread
    std::function<void()> work_;
    std::exception_ptr failure_;
    bool ends_ = false;
};

} // namespace velmora::drives
