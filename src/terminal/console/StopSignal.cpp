// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/StopSignal.h"

#include "runtime/EndSignals.h"
#include "terminal/console/ExitCode.h"

#include <array>
#include <atomic>
#include <csignal>
#include <unistd.h>

namespace velmora::terminal {

namespace {

constexpr std::array kSignals {SIGINT, SIGTERM, SIGHUP};

// A signal handler can only reach globals; lock-free atomics are safe in it.
std::atomic<bool> stopRequested {false};        // NOLINT(*-non-const-global-variables)
std::atomic<const char*> partialPath {nullptr}; // NOLINT(*-non-const-global-variables)
std::atomic<bool> patient {false};              // NOLINT(*-non-const-global-variables)
static_assert(
    std::atomic<bool>::is_always_lock_free && std::atomic<const char*>::is_always_lock_free);

extern "C" void HandleStop(int)
{
    if (!stopRequested.exchange(true) || patient) {
        return;
    }
    if (const char* path = partialPath.load()) {
        unlink(path);
    }
    _exit(static_cast<int>(ExitCode::Stopped));
}

} // namespace

StopSignal::StopSignal()
{
    stopRequested = false;
    patient = false;
    struct sigaction action { };
    action.sa_handler = HandleStop;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals) { // nohup and background jobs have asked to go on
        if (!runtime::IsIgnored(signal)) {
            sigaction(signal, &action, nullptr);
        }
    }
}

StopSignal::~StopSignal()
{
    for (const int signal : kSignals) {
        if (!runtime::IsIgnored(signal)) {
            std::signal(signal, SIG_DFL);
        }
    }
    partialPath = nullptr;
}

bool StopSignal::Requested() const { return stopRequested; }

void StopSignal::SetPatient(bool isPatient) { patient = isPatient; }

void StopSignal::SetPartialFile(const std::string& path)
{
    partialPath = nullptr;
    partialFile_ = path;
    if (!partialFile_.empty()) {
        partialPath = partialFile_.c_str();
    }
}

} // namespace velmora::terminal
