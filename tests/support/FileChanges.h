// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string_view>
#include <sys/stat.h>
#include <utility>

// Changes of a file that can be distinguished from earlier ones: the system's clock for files ticks
// only a few hundred times a second.
namespace velmora::test {

/// When a file was last changed, even if its times are set.
inline std::pair<time_t, long> ChangeOf(const std::filesystem::path& path)
{
    struct stat status { };
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return {status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

/// Writes over the start of a file, as often as it takes until the change can be seen.
inline void Rewrite(const std::filesystem::path& path, std::string_view content)
{
    const auto before = ChangeOf(path);
    do {
        std::fstream(path, std::ios::in | std::ios::out | std::ios::binary) << content;
    } while (!testing::Test::HasFailure() && ChangeOf(path) == before);
}

/// Returns when a change of the file can be distinguished from earlier ones.
inline void WaitForTheClock(const std::filesystem::path& path)
{
    const auto before = ChangeOf(path);
    do {
        std::filesystem::permissions(path, std::filesystem::status(path).permissions());
    } while (!testing::Test::HasFailure() && ChangeOf(path) == before);
}

} // namespace velmora::test
