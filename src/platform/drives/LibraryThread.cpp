// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/LibraryThread.h"

#include "drive/PublishedCodes.h"

#include <libburn/libburn.h>

#include <chrono>
#include <string>
#include <utility>

namespace velmora::drives {

namespace {

using namespace std::chrono_literals;

void InitializeLibrary()
{
    int major = 0;
    int minor = 0;
    int micro = 0;
    burn::burn_version(&major, &minor, &micro);
    const bool fits = major > burn_header_version_major
        || (major == burn_header_version_major && minor >= burn_header_version_minor);
    if (!fits || burn::burn_initialize() == 0) {
        throw drive::PublishedError(drive::hresult::kFail);
    }
    std::string all = "ALL";
    std::string never = "NEVER";
    std::string prefix;
    burn::burn_msgs_set_severities(all.data(), never.data(), prefix.data());
}

} // namespace

LibraryThread::~LibraryThread()
{
    if (!thread_.joinable()) {
        return;
    }
    {
        const std::scoped_lock lock(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void LibraryThread::Run(runtime::EventPump& pump,
    const std::function<void()>& work,
    const std::function<void()>& meanwhile)
{
    if (isRunning_) {
        throw drive::PublishedError(drive::hresult::kMediaBusy);
    }
    Start();
    isRunning_ = true;
    {
        const std::scoped_lock lock(mutex_);
        work_ = work;
    }
    changed_.notify_all();
    std::exception_ptr failure;
    try {
        WaitPumping(pump, meanwhile);
    } catch (...) {
        failure = std::current_exception();
        WaitQuietly(meanwhile); // the work refers to the caller's objects
    }
    isRunning_ = false;
    if (!failure) {
        failure = std::exchange(failure_, nullptr);
    }
    failure_ = nullptr;
    if (failure) {
        std::rethrow_exception(failure);
    }
}

void LibraryThread::Start()
{
    if (!thread_.joinable()) {
        thread_ = std::thread([this] { Loop(); });
    }
}

bool LibraryThread::WaitForEnd()
{
    constexpr auto kGap = 20ms; // half of what the user would notice, as the pump takes time too
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, kGap, [this] { return work_ == nullptr; });
}

void LibraryThread::WaitPumping(runtime::EventPump& pump, const std::function<void()>& meanwhile)
{
    while (!WaitForEnd()) {
        if (meanwhile) {
            meanwhile();
        }
        pump.Pump();
    }
}

void LibraryThread::WaitQuietly(const std::function<void()>& meanwhile)
{
    while (!WaitForEnd()) {
        if (!meanwhile) {
            continue;
        }
        try {
            meanwhile();
        } catch (...) { // NOLINT(bugprone-empty-catch): what was raised first is raised
        }
    }
}

void LibraryThread::Loop()
{
    bool initialized = false;
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return ends_ || work_ != nullptr; });
        if (work_ == nullptr) {
            break;
        }
        lock.unlock();
        std::exception_ptr failure;
        try {
            if (!initialized) {
                InitializeLibrary();
                initialized = true;
            }
            work_();
        } catch (...) {
            failure = std::current_exception();
        }
        lock.lock();
        failure_ = failure;
        work_ = nullptr;
        changed_.notify_all();
    }
    if (initialized) {
        burn::burn_finish();
    }
}

} // namespace velmora::drives
