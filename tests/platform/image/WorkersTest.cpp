// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/base/Workers.h"

#include "image/source/TreeScanner.h"
#include "tests/platform/image/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

namespace velmora::test {

using namespace image;

TEST(WorkersTest, WhatOneWorkerThrowsReachesTheCallerOnceTheOthersHaveEnded)
{
    std::atomic<bool> abandoned = false;
    std::atomic<int> begun = 0;
    const auto work = [&] {
        if (++begun == 1) {
            throw std::bad_alloc();
        }
        while (!abandoned) {
            std::this_thread::yield();
        }
    };
    EXPECT_THROW(RunWorkers(
                     3, work, [] {}, [&] { abandoned = true; }),
        std::bad_alloc);
    EXPECT_EQ(begun, 3);
}

TEST(WorkersTest, AllJobsAreDoneWhateverOneOfThemThrows)
{
    for (const unsigned threads : {2U, 4U}) {
        std::atomic<int> done = 0;
        const auto job = [&] { ++done; };
        const auto failing = []() -> void { throw std::bad_alloc(); };
        EXPECT_THROW(RunAll({job, failing, job, job}, threads), std::bad_alloc);
        EXPECT_EQ(done, 3);
    }
    EXPECT_THROW(RunAll({[]() -> void { throw std::bad_alloc(); }}, 1), std::bad_alloc);
}

TEST(WorkersTest, WithoutRoomForThreadsThereAreFewerOrAFailure)
{
    const int outcome = InChild([] {
        const rlimit none {0, 0};
        const bool isOrdinary = ::geteuid() != 0 || ::setuid(65534) == 0; // root has no such limit
        if (!isOrdinary || ::setrlimit(RLIMIT_NPROC, &none) != 0) {
            return kNotPossible;
        }
        try {
            RunWorkers(
                2, [] {}, [] {}, [] {});
        } catch (const std::bad_alloc&) {
            return kAsExpected;
        }
        return kNotPossible; // no limit holds for this user
    });
    if (outcome == kNotPossible) {
        GTEST_SKIP() << "threads can't be forbidden here";
    }
    EXPECT_EQ(outcome, kAsExpected);
}

TEST(WorkersTest, AScanThatRunsOutOfMemoryThrowsAndDoesNotHang)
{
    const TemporaryFolder folder;
    for (const char* name : {"a/b/c", "d/e", "f"}) {
        folder.MakeFolder(name);
    }
    ScanOptions options {.threads = 4};
    options.refusalOfFolder
        = [](const NodeFacts&) -> std::optional<ErrorKind> { throw std::bad_alloc(); };
    SourceTree tree;
    const auto scan = [&] {
        return ScanFolder(
            tree, SourceTree::kRoot, folder.Path().native(), IncludeBase::No, options);
    };
    EXPECT_THROW((void)scan(), std::bad_alloc);
}

} // namespace velmora::test
