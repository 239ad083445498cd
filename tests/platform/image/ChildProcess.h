// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sched.h>
#include <spawn.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

namespace velmora::test {

/// What a child process found out, as its exit status.
enum Outcome : int { kAsExpected = 0, kUnexpected = 1, kNotPossible = 77 };

/// Does in a process of its own what would affect the whole test program: limits, mounts.
/// @return the Outcome that the work gives, -1 when the process ended otherwise
template <class Work> int InChild(Work&& work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(std::forward<Work>(work)());
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// From here on this process's mounts are private, and end with it.
inline bool HideMounts()
{
    const int spaces = CLONE_NEWNS | (::geteuid() == 0 ? 0 : CLONE_NEWUSER);
    return ::unshare(spaces) == 0
        && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// Runs a program of the system; whether it is there and succeeded.
inline bool RunProgram(std::vector<std::string> words)
{
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    pid_t child = -1;
    int status = -1;
    return ::posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0
        && ::waitpid(child, &status, 0) == child && status == 0;
}

} // namespace velmora::test
