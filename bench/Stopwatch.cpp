// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench-stopwatch FILE COMMAND [ARGUMENT...] - runs a command, flushes FILE to the disk, and writes
// to the standard output
//     WALL_SECONDS USER_SECONDS SYSTEM_SECONDS PEAK_RESIDENT_KIB EXIT_CODE
// The command's own output goes to the standard error. An empty FILE means none, and a FILE that
// the command didn't make is no failure here.
//
// Some programs end when their file is on the disk, others leave that to the kernel: timing until
// the file is on the disk compares the same work.
//
// A program of its own, because a process inherits the peak memory of the one that it was forked
// from: a child of a script would never show less than the script's interpreter.
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double Seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// @return 0 or a system error
int Spawn(char** command, pid_t& child)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, STDERR_FILENO, STDOUT_FILENO);
    const int failure = posix_spawnp(&child, command[0], &actions, nullptr, command, environ);
    posix_spawn_file_actions_destroy(&actions);
    return failure;
}

void BringToDisk(const char* name)
{
    if (const int file = open(name, O_RDONLY | O_CLOEXEC); file >= 0) {
        fsync(file);
        close(file);
    }
}

/// @return seconds of this program's own, spent flushing the file
double OwnSystemSeconds()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return Seconds(usage.ru_stime);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fputs("usage: bench-stopwatch FILE COMMAND [ARGUMENT...]\n", stderr);
        return 2;
    }
    const auto begun = std::chrono::steady_clock::now();
    pid_t child = 0;
    if (const int failure = Spawn(argv + 2, child); failure != 0) {
        std::fprintf(stderr, "%s: %s\n", argv[2], std::strerror(failure));
        return 2;
    }
    int status = 0;
    rusage usage {};
    while (wait4(child, &status, 0, &usage) < 0) {
        if (errno != EINTR) {
            return 2;
        }
    }
    BringToDisk(argv[1]);
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begun;
    std::printf("%.6f %.6f %.6f %ld %d\n",
        wall.count(),
        Seconds(usage.ru_utime),
        Seconds(usage.ru_stime) + OwnSystemSeconds(),
        usage.ru_maxrss,
        WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status));
    return 0;
}
