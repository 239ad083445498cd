// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The functions of the C library that burning programs call, answered for the emulated drive's path
// and its handles, and passed on otherwise.
//
// The names and declarations are the C library's.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)

#include "tests/mmc/EmulatedDrive.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdlib>
#include <cstring>

namespace {

using velmora::mmc::EmulatedDrive;

// The function that this file intercepts.
template <class Function> Function* Next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

EmulatedDrive& Drive() { return EmulatedDrive::Instance(); }

bool TakesMode(int flags) { return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE; }

mode_t ModeOf(int flags, va_list arguments)
{
    return TakesMode(flags) ? va_arg(arguments, mode_t) : 0;
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    static auto* const next = Next<int(const char*, int, ...)>("open");
    return Drive().Answers(path) ? Drive().Open(flags) : next(path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    static auto* const next = Next<int(const char*, int, ...)>("open64");
    return Drive().Answers(path) ? Drive().Open(flags) : next(path, flags, mode);
}

int __open_2(const char* path, int flags);
int __open_2(const char* path, int flags)
{
    static auto* const next = Next<int(const char*, int)>("__open_2");
    return Drive().Answers(path) ? Drive().Open(flags) : next(path, flags);
}

int openat(int folder, const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    static auto* const next = Next<int(int, const char*, int, ...)>("openat");
    return Drive().Answers(path) ? Drive().Open(flags) : next(folder, path, flags, mode);
}

/// A program that lists the drives finds the emulated one in a folder of the test.
DIR* opendir(const char* path)
{
    static auto* const next = Next<DIR*(const char*)>("opendir");
    const char* const blocks = std::getenv("MMC_DRIVE_BLOCKS");
    const bool isAskedFor = blocks != nullptr && std::strcmp(path, "/sys/class/block") == 0;
    return next(isAskedFor ? blocks : path);
}

int close(int handle)
{
    static auto* const next = Next<int(int)>("close");
    if (Drive().Owns(handle)) {
        Drive().Close(handle);
    }
    return next(handle);
}

/// Closes whatever the handle refers to.
int dup3(int handle, int other, int flags) noexcept
{
    static auto* const next = Next<int(int, int, int)>("dup3");
    if (Drive().Owns(other)) {
        Drive().Close(other);
    }
    return next(handle, other, flags);
}

int ioctl(int handle, unsigned long request, ...) noexcept
{
    va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    static auto* const next = Next<int(int, unsigned long, ...)>("ioctl");
    return Drive().Owns(handle) ? Drive().Control(handle, request, argument)
                                : next(handle, request, argument);
}

int stat(const char* path, struct stat* facts) noexcept
{
    static auto* const next = Next<int(const char*, struct stat*)>("stat");
    return Drive().Answers(path) ? Drive().Describe(facts) : next(path, facts);
}

int lstat(const char* path, struct stat* facts) noexcept
{
    static auto* const next = Next<int(const char*, struct stat*)>("lstat");
    return Drive().Answers(path) ? Drive().Describe(facts) : next(path, facts);
}

int fstat(int handle, struct stat* facts) noexcept
{
    static auto* const next = Next<int(int, struct stat*)>("fstat");
    return Drive().Owns(handle) ? Drive().Describe(facts) : next(handle, facts);
}

int __xstat(int version, const char* path, struct stat* facts);
int __xstat(int version, const char* path, struct stat* facts)
{
    static auto* const next = Next<int(int, const char*, struct stat*)>("__xstat");
    return Drive().Answers(path) ? Drive().Describe(facts) : next(version, path, facts);
}

int __lxstat(int version, const char* path, struct stat* facts);
int __lxstat(int version, const char* path, struct stat* facts)
{
    static auto* const next = Next<int(int, const char*, struct stat*)>("__lxstat");
    return Drive().Answers(path) ? Drive().Describe(facts) : next(version, path, facts);
}

int __fxstat(int version, int handle, struct stat* facts);
int __fxstat(int version, int handle, struct stat* facts)
{
    static auto* const next = Next<int(int, int, struct stat*)>("__fxstat");
    return Drive().Owns(handle) ? Drive().Describe(facts) : next(version, handle, facts);
}

int usleep(useconds_t microseconds)
{
    static auto* const next = Next<int(useconds_t)>("usleep");
    return next(microseconds / Drive().Haste());
}

unsigned sleep(unsigned seconds)
{
    constexpr useconds_t kSecond = 1000000;
    usleep(seconds * kSecond);
    return 0;
}

} // extern "C"

// NOLINTEND(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
