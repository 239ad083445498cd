// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <mutex>
#include <utility>

namespace velmora::virtualdrive::test {

namespace {

/// What the system's flushes do in this program's tests.
struct Flushes {
    std::mutex mutex;
    std::function<bool()> onFlush; ///< false: the flush fails
};

Flushes& TheFlushes()
{
    static Flushes flushes;
    return flushes;
}

} // namespace

class DurableWriteTest : public VirtualBench {
protected:
    static void OnFlush(std::function<bool()> onFlush)
    {
        const std::scoped_lock lock(TheFlushes().mutex);
        TheFlushes().onFlush = std::move(onFlush);
    }
    ~DurableWriteTest() override { OnFlush({}); }
};

TEST_F(DurableWriteTest, ARecordingCountsOnceItsSectorsAreOnTheComputersDisk)
{
    Insert(u"dvd+r");
    std::vector<qsizetype> sessions; // at each flush
    OnFlush([&] {
        sessions.push_back(Now().disc->sessions.size());
        return true;
    });

    ASSERT_EQ(Write(1000), 0);

    EXPECT_EQ(sessions, (std::vector<qsizetype> {0, 1, 1})) << "sectors, description, its folder";
}

TEST_F(DurableWriteTest, SectorsThatDoNotGetToTheComputersDiskAreAFailedWrite)
{
    Insert(u"dvd+r");
    OnFlush([] { return false; });

    EXPECT_EQ(Write(1000), Seen(drive::hresult::kWriteError));

    const drive::DiscInfo disc = drive.Examine();
    EXPECT_TRUE(disc.damaged);
    EXPECT_TRUE(disc.sessions.isEmpty());
    EXPECT_GE(disc.nextWritable, 1000) << "behind what was written";
}

TEST_F(DurableWriteTest, ADescriptionThatDoesNotGetThereIsToldToo)
{
    Insert(u"dvd+r");
    OnFlush([this] { return Now().disc->sessions.isEmpty(); });

    EXPECT_EQ(Write(1000), Seen(drive::hresult::kFail));
    EXPECT_EQ(drive.Examine().sessions.size(), 1) << "it is only not known to last";
}

TEST_F(DurableWriteTest, AnEraseThatDoesNotGetThereIsNoSuccess)
{
    for (const QStringView kind : {u"cd-rw", u"dvd+rw"}) {
        OnFlush({});
        Insert(kind);
        ASSERT_EQ(Write(1000), 0);
        OnFlush([] { return false; });
        EXPECT_NE(velmora::test::ErrorNumberOf([&] { drive.Erase(false, {}); }), 0);
    }
}

} // namespace velmora::virtualdrive::test

/// In place of the system's.
extern "C" int fsync(int file)
{
    auto& flushes = velmora::virtualdrive::test::TheFlushes();
    const std::scoped_lock lock(flushes.mutex);
    if (flushes.onFlush && !flushes.onFlush()) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, file));
}
