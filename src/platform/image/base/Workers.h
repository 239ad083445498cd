// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace velmora::image {

/// How often a caller hears of a long piece of work: 25 times a second, the pace of a person's eye.
inline constexpr std::chrono::milliseconds kProgressInterval {40};

/// The number of threads to use when `wanted` is 0: the machine's processors, four at most.
inline unsigned ThreadCount(unsigned wanted)
{
    return wanted != 0 ? wanted : std::clamp(std::thread::hardware_concurrency(), 1U, 4U);
}

/// Runs `work` on `count` threads and waits for them; meanwhile the calling thread runs `meanwhile`
/// about 25 times a second. The threads stop when `work` returns.
inline void RunWorkers(
    unsigned count, const std::function<void()>& work, const std::function<void()>& meanwhile)
{
    std::mutex mutex;
    std::condition_variable finished;
    unsigned running = count;
    std::vector<std::jthread> threads;
    threads.reserve(count);
    for (unsigned i = 0; i < count; ++i) {
        threads.emplace_back([&] {
            work();
            const std::lock_guard lock(mutex);
            if (--running == 0) {
                finished.notify_one();
            }
        });
    }
    std::unique_lock lock(mutex);
    while (!finished.wait_for(lock, kProgressInterval, [&] { return running == 0; })) {
        lock.unlock();
        meanwhile();
        lock.lock();
    }
}

} // namespace velmora::image
