// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/LineSource.h"

#include <array>
#include <cerrno>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace velmora::terminal {

StandardInput::StandardInput(std::function<bool()> stopRequested)
    : stopRequested_(std::move(stopRequested))
{
}

std::optional<std::string> StandardInput::ReadLine()
{
    std::size_t end = read_.find('\n'); // several lines may have come at once
    while (end == std::string::npos) {
        std::array<char, 256> bytes {};
        const ssize_t count = WaitForBytes() ? read(STDIN_FILENO, bytes.data(), bytes.size()) : 0;
        if (count <= 0) {
            return std::nullopt;
        }
        read_.append(bytes.data(), static_cast<std::size_t>(count));
        end = read_.find('\n');
    }
    std::string line = read_.substr(0, end);
    read_.erase(0, end + 1);
    return line;
}

bool StandardInput::WaitForBytes() const
{
    constexpr int kMilliseconds = 40;
    while (!stopRequested_()) {
        pollfd input {.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
        const int ready = poll(&input, 1, kMilliseconds);
        if (ready > 0) {
            return true;
        }
        if (ready < 0 && errno != EINTR) {
            return false;
        }
    }
    return false;
}

} // namespace velmora::terminal
