// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EventPump.h"

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace velmora::drives {

/// What a drive is doing when somebody asks it for something else.
enum class Task : std::uint8_t { None, Look, Write, Erase };

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
    /// @param meanwhile  called before each pump, on the calling thread; may be empty
    /// Errors: C0AA0400 while a write runs, 80AA0900 while an erase does, C0AA0207 otherwise: an
    /// event handler has asked for a second thing.
    void Run(Task task,
        runtime::EventPump& pump,
        const std::function<void()>& work,
        const std::function<void()>& meanwhile = {});

private:
    void Start();
    void Loop();
    bool WaitForEnd();
    void WaitPumping(runtime::EventPump& pump, const std::function<void()>& meanwhile);

    std::mutex mutex_;
    std::condition_variable changed_;
    std::thread thread_;
    Task task_ = Task::None; // of the calling thread
    std::function<void()> work_;
    std::exception_ptr failure_;
    bool ends_ = false;
};

} // namespace velmora::drives
