// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>

#include <gtest/gtest.h>

namespace velmora::test {

inline constexpr time_t kFormerAccess = 1'000'000'000; // seconds since 1970

/// Sets the access time before the last change, so that the next access would update it.
inline void MakeAccessFormer(const std::string& path)
{
    const std::array<timespec, 2> times {timespec {.tv_sec = kFormerAccess, .tv_nsec = 0},
        timespec {.tv_sec = 0, .tv_nsec = UTIME_OMIT}};
    EXPECT_EQ(::utimensat(AT_FDCWD, path.c_str(), times.data(), 0), 0) << path;
}

inline bool IsAccessFormer(const std::string& path)
{
    struct stat status { };
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_atim.tv_sec == kFormerAccess;
}

} // namespace velmora::test
