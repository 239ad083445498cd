// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/resource.h>

#include <csignal>
#include <stdexcept>

namespace velmora::virtualdrive::test {

/// During its lifetime no file can grow beyond a few bytes, as on a full disk.
class FullDisk {
public:
    FullDisk()
        : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        if (getrlimit(RLIMIT_FSIZE, &before_) != 0) {
            throw std::runtime_error("no limits");
        }
        rlimit tight = before_;
        tight.rlim_cur = 16;
        setrlimit(RLIMIT_FSIZE, &tight);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_ {};
    void (*handler_)(int);
};

} // namespace velmora::virtualdrive::test
