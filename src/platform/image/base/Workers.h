// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <vector>

namespace velmora::image {

/// How often a caller is told of a long piece of work: 25 times a second, as fast as the eye can
/// follow.
inline constexpr std::chrono::milliseconds kProgressInterval {40};

/// The number of threads to use when `wanted` is 0: the machine's processors, four at most.
inline unsigned ThreadCount(unsigned wanted)
{
    return wanted != 0 ? wanted : std::clamp(std::thread::hardware_concurrency(), 1U, 4U);
}

/// Keeps the first exception of several threads for the one that waits for them.
class FirstFailure {
public:
    /// @return whether the work ended without an exception
    bool Catch(const std::function<void()>& work)
    {
        try {
            work();
            return true;
        } catch (...) {
            const std::lock_guard lock(mutex_);
            if (!failure_) {
                failure_ = std::current_exception();
            }
            return false;
        }
    }

    /// Call it only when no thread can fail any more.
    void Rethrow() const
    {
        if (failure_) {
            std::rethrow_exception(failure_);
        }
    }

private:
    std::mutex mutex_;
    std::exception_ptr failure_;
};

/// Starts up to `count` threads; if the system grants no more, fewer will do.
/// @return the number started, at least one
/// Errors: std::bad_alloc when not even one can be started.
inline std::vector<std::jthread> StartThreads(std::size_t count, const std::function<void()>& body)
{
    std::vector<std::jthread> threads;
    threads.reserve(count);
    try {
        while (threads.size() < count) {
            threads.emplace_back(body);
        }
    } catch (const std::system_error&) {
        if (threads.empty()) {
            throw std::bad_alloc();
        }
    }
    return threads;
}

/// Runs `work` on up to `count` threads and waits for them; meanwhile the calling thread runs
/// `meanwhile` about 25 times a second. The threads stop when `work` returns. If it throws in one,
/// `abandon` tells the others to finish, and the caller gets the exception.
inline void RunWorkers(unsigned count,
    const std::function<void()>& work,
    const std::function<void()>& meanwhile,
    const std::function<void()>& abandon)
{
    std::mutex mutex;
    std::condition_variable finished;
    std::size_t ended = 0;
    FirstFailure failure;
    const std::vector<std::jthread> threads = StartThreads(count, [&] {
        if (!failure.Catch(work)) {
            abandon();
        }
        const std::lock_guard lock(mutex);
        ++ended;
        finished.notify_one();
    });
    std::unique_lock lock(mutex);
    while (!finished.wait_for(lock, kProgressInterval, [&] { return ended == threads.size(); })) {
        lock.unlock();
        meanwhile();
        lock.lock();
    }
    failure.Rethrow();
}

/// Runs independent jobs and waits for them; in parallel if more than one thread is wanted.
inline void RunAll(const std::vector<std::function<void()>>& jobs, unsigned threads)
{
    if (ThreadCount(threads) == 1 || jobs.size() < 2) {
        for (const auto& job : jobs) {
            job();
        }
        return;
    }
    FirstFailure failure;
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t at = next++; at < jobs.size(); at = next++) {
            failure.Catch(jobs[at]);
        }
    };
    {
        const std::vector<std::jthread> others = StartThreads(jobs.size() - 1, work);
        work();
    }
    failure.Rethrow();
}

} // namespace velmora::image
