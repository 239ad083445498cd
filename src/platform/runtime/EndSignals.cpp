// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <utility>

namespace velmora::runtime {

namespace {

constexpr std::array kSignals {SIGTERM, SIGHUP, SIGINT};

// A signal handler can only reach globals; a lock-free atomic is safe in it.
std::atomic<int> pipeEnd {-1}; // NOLINT(*-non-const-global-variables)
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void HandleEndSignal(int)
{
    const int before = errno;
    const char news = 0;
    [[maybe_unused]] const auto written = ::write(pipeEnd, &news, 1); // a full pipe is as good
    errno = before;
}

std::array<int, 2> NewPipe()
{
    std::array<int, 2> ends {-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        ends = {-1, -1};
    }
    return ends;
}

} // namespace

bool IsIgnored(int signal)
{
    struct sigaction current { };
    return sigaction(signal, nullptr, &current) == 0 && current.sa_handler == SIG_IGN;
}

EndSignals::EndSignals(std::function<void()> handler)
    : pipe_(NewPipe())
    , notifier_(pipe_[0], QSocketNotifier::Read)
{
    QObject::connect(
        &notifier_, &QSocketNotifier::activated, &notifier_, [this, handler = std::move(handler)] {
            std::array<char, 16> news {};
            while (::read(pipe_[0], news.data(), news.size()) > 0) { }
            handler();
        });
    pipeEnd = pipe_[1];
    struct sigaction action { };
    action.sa_handler = HandleEndSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals) {
        if (!IsIgnored(signal)) {
            sigaction(signal, &action, nullptr);
        }
    }
}

EndSignals::~EndSignals()
{
    for (const int signal : kSignals) {
        if (!IsIgnored(signal)) {
            std::signal(signal, SIG_DFL);
        }
    }
    pipeEnd = -1;
    ::close(pipe_[0]);
    ::close(pipe_[1]);
}

} // namespace velmora::runtime
