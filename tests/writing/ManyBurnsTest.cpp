// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/writing/VirtualRunBench.h"

#include <malloc.h>

#include <filesystem>

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // its header isn't always there
#endif

namespace velmora::test {

namespace {

/// Bytes that the program holds at this moment.
std::size_t HeapBytes()
{
#ifdef __SANITIZE_ADDRESS__
    return __sanitizer_get_current_allocated_bytes();
#else
    return mallinfo2().uordblks;
#endif
}

std::ptrdiff_t EntriesOf(const char* folder)
{
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

struct Holdings {
    std::size_t heapBytes = HeapBytes();
    std::ptrdiff_t descriptors = EntriesOf("/proc/self/fd");
    std::ptrdiff_t threads = EntriesOf("/proc/self/task");
};

} // namespace

using ManyBurnsTest = VirtualRunBench;

TEST_F(ManyBurnsTest, TwoHundredInARowLeaveNothingBehind)
{
    constexpr int kWarmUp = 20;
    constexpr int kBurns = 200;
    constexpr std::size_t kSlack = 64 * 1024;
    WriteFile("sea.bin", "a small sea");
    Holdings before;
    for (int burn = 0; burn < kBurns; ++burn) {
        if (burn == kWarmUp) {
            transcript.Clear();
            before = Holdings();
        }
        Insert(u"cd-r");
        Burn();
        ASSERT_TRUE(state.BurnDone) << burn << '\n' << Log();
    }
    transcript.Clear();
    const Holdings after;
    EXPECT_LE(after.heapBytes, before.heapBytes + kSlack);
    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_EQ(after.threads, before.threads);
}

} // namespace velmora::test
