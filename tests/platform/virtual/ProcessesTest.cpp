// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

#include "virtual/FolderLock.h"

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;
using drive::DiscState;
using velmora::test::ErrorNumberOf;

namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

enum ChildEnd : std::uint8_t { Done = 0, NoMedia = 10, Locked = 11, Other = 12 };

ChildEnd EndOf(qint32 number)
{
    if (number == 0) {
        return Done;
    }
    if (number == Seen(drive::hresult::kNoMedia)) {
        return NoMedia;
    }
    return number == Seen(drive::hresult::kRecorderLocked) ? Locked : Other;
}

/// The machine's clock, a hundred times as fast: what happens a few times a second happens often
/// enough for a test to interfere.
class FastClock final : public runtime::Clock {
public:
    explicit FastClock(runtime::EventPump& pump)
        : real_(pump)
    {
    }
    double Timer() const override { return real_.Timer() * kFactor; }
    QDateTime Now() const override { return real_.Now(); }
    void Pause(double seconds) override { real_.Pause(seconds / kFactor); }

private:
    static constexpr double kFactor = 100;
    runtime::SystemClock real_;
};

/// Gives a pattern slowly: a piece of it every two milliseconds.
drive::WriteSource SlowSource(quint32 seed)
{
    return [source = PatternSource(seed)](std::span<std::byte> out) mutable {
        std::this_thread::sleep_for(milliseconds(2)); // lets other processes come in between
        source(out);
    };
}

} // namespace

class ProcessesTest : public VirtualBench {
protected:
    /// Runs a piece of work in a process of its own, whose end tells how it went.
    template <class Work> static pid_t Start(Work&& work)
    {
        const pid_t child = fork();
        if (child == 0) {
            try {
                _exit(work());
            } catch (...) { // nothing may get back into the test
                _exit(Other);
            }
        }
        return child;
    }
    static int WaitFor(pid_t child)
    {
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    ChildEnd WriteInChild(qint64 sectors, quint32 seed) const
    {
        velmora::test::FakePump quiet;
        FastClock fast(quiet);
        VirtualDrive own(recorders.Folder(u"A"_s), fast, quiet);
        const drive::WriteOrder order {.source = SlowSource(seed), .sectors = sectors};
        return EndOf(ErrorNumberOf([&] { own.Write(order, {}); }));
    }
    /// Waits until another process's write has got some way, which only its records tell.
    void AwaitSectors(qint64 sectors) const
    {
        while (!Now().disc || !Now().disc->open || Now().disc->open->sectors < sectors) {
            std::this_thread::sleep_for(milliseconds(1)); // it doesn't announce it
        }
    }
};

TEST_F(ProcessesTest, ALockThatIsNeverGivenBackIsNotWaitedForForEver)
{
    FolderLock held(recorders.Folder(u"A"_s).Path());
    held.Take(LockPart::Change);
    FolderLock other(recorders.Folder(u"A"_s).Path());
    EXPECT_EQ(ErrorNumberOf([&] { other.Take(LockPart::Change, milliseconds(5)); }),
        Seen(drive::hresult::kRecorderLocked));
    held.Release(LockPart::Change);
    EXPECT_EQ(ErrorNumberOf([&] { other.Take(LockPart::Change, milliseconds(0)); }), 0);
}

TEST_F(ProcessesTest, WhoUsesTheRecorderIsNamed)
{
    Insert(u"dvd+r");
    const pid_t child = Start([&] { return WriteInChild(12'800, 3); });
    AwaitSectors(1);
    VirtualDrive looker(recorders.Folder(u"A"_s), clock, pump); // has the file open, no more
    EXPECT_NE(ErrorNumberOf([&] { looker.Examine(); }), 0);
    QString told;
    try {
        drive.Examine();
    } catch (const runtime::RuntimeError& failure) {
        told = failure.Description();
    }
    EXPECT_TRUE(told.contains(u"(processus %1) : fermez ce programme"_s.arg(child)))
        << told.toStdString();
    kill(child, SIGKILL);
    WaitFor(child);
}

TEST_F(ProcessesTest, OneLooksOnWhileAnotherWrites)
{
    Insert(u"dvd+r");
    const pid_t child = Start([&] { return WriteInChild(12'800, 3); });
    AwaitSectors(1);
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kRecorderLocked));
    EXPECT_EQ(Write(10), Seen(drive::hresult::kRecorderLocked));
    EXPECT_EQ(drive.Identify().id, u"virtual:A"_s);
    qint64 before = 0;
    while (Now().disc->open) {
        const Description now = Now();
        if (now.disc->open) {
            EXPECT_GE(now.disc->open->sectors, before);
            before = now.disc->open->sectors;
        }
    }
    EXPECT_EQ(WaitFor(child), Done);
    EXPECT_GT(before, 0);
    EXPECT_EQ(ReadBack(0, 12'800), Pattern(12'800, 3));
}

TEST_F(ProcessesTest, OneOpensTheTrayWhileAnotherWrites)
{
    Insert(u"dvd+r");
    const pid_t child = Start([&] { return WriteInChild(128'000, 3); });
    AwaitSectors(256);
    recorders.Eject(u"A"_s);
    EXPECT_EQ(WaitFor(child), NoMedia);
    recorders.Close(u"A"_s, clock);
    const drive::DiscInfo info = drive.Examine();
    EXPECT_TRUE(info.damaged);
    EXPECT_EQ(ReadBack(0, 256), Pattern(256, 3));
}

TEST_F(ProcessesTest, OnlyOneOfTwoWrites)
{
    Insert(u"dvd+r");
    const pid_t first = Start([&] { return WriteInChild(6400, 1); });
    const pid_t second = Start([&] { return WriteInChild(6400, 2); });
    const int firstEnd = WaitFor(first);
    const int secondEnd = WaitFor(second);
    ASSERT_NE(firstEnd, secondEnd);
    EXPECT_EQ(std::min(firstEnd, secondEnd), Done);
    EXPECT_EQ(std::max(firstEnd, secondEnd), Locked);
    EXPECT_EQ(drive.Examine().sessions.size(), 1);
    EXPECT_EQ(ReadBack(0, 6400), Pattern(6400, firstEnd == Done ? 1 : 2));
}

TEST_F(ProcessesTest, NoChangeIsLostAndNoneIsSeenByHalf)
{
    constexpr int kProcesses = 4;
    constexpr int kChanges = 50;
    std::vector<pid_t> children;
    for (int child = 0; child < kProcesses; ++child) {
        children.push_back(Start([&] {
            for (int time = 0; time < kChanges; ++time) {
                recorders.Plan(u"A"_s, {.sector = child * kChanges + time});
            }
            return 0;
        }));
    }
    qsizetype before = 0;
    while (before < static_cast<qsizetype>(kProcesses * kChanges)) {
        const qsizetype now = Now().faults.size(); // raises when it sees half a description
        ASSERT_GE(now, before);
        before = now;
    }
    for (const pid_t child : children) {
        EXPECT_EQ(WaitFor(child), 0);
    }
    QList<qint64> sectors;
    for (const Fault& fault : Now().faults) {
        sectors.append(fault.sector);
    }
    std::ranges::sort(sectors);
    for (qint64 at = 0; at < sectors.size(); ++at) {
        EXPECT_EQ(sectors.at(at), at);
    }
}

TEST_F(ProcessesTest, AProcessThatDiesLetsGoOfTheDrive)
{
    Insert(u"cd-rw");
    const pid_t child = Start([&] {
        VirtualDrive own(recorders.Folder(u"A"_s), clock, pump);
        own.Lock(false);
        recorders.SetRealTiming(u"A"_s, true); // tells that it holds the drive
        pause();
        return 0;
    });
    while (!Now().drive.realTiming) {
        std::this_thread::sleep_for(milliseconds(1)); // no other process is told
    }
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kRecorderLocked));
    kill(child, SIGKILL);
    WaitFor(child);
    EXPECT_EQ(ExamineError(), 0);
}

TEST_F(ProcessesTest, AWriteThatIsKilledLeavesADiscThatLoads)
{
    std::mt19937 random(20'240'229);
    std::uniform_int_distribution<int> delay(0, 20'000);
    int cutInTheData = 0;
    for (int round = 0; round < 36; ++round) {
        const QStringView key = std::array {u"dvd+r", u"cd-rw", u"bd-r"}[round % 3];
        Insert(key);
        ASSERT_EQ(Write(320, false, 1), 0);
        const drive::DiscInfo before = drive.Examine();
        const pid_t child = Start([&] { return WriteInChild(128'000, 2); });
        if (round % 2 == 0) { // well in the data, however busy the machine is
            AwaitSectors(1);
        }
        std::this_thread::sleep_for(microseconds(delay(random))); // may be found at any moment
        kill(child, SIGKILL);
        WaitFor(child);

        const drive::DiscInfo info = drive.Examine();
        ASSERT_EQ(info.state, DiscState::Appendable);
        ASSERT_EQ(info.sessions.size(), 1);
        EXPECT_EQ(ReadBack(0, 320), Pattern(320, 1));
        const qint64 kept = Now().disc->open ? Now().disc->open->sectors : 0;
        cutInTheData += kept > 0 ? 1 : 0;
        EXPECT_EQ(info.damaged, kept > 0);
        EXPECT_GE(info.nextWritable, before.nextWritable + kept);
        if (kept > 0) {
            EXPECT_EQ(ReadBack(before.nextWritable, kept), Pattern(kept, 2));
        }
        ASSERT_EQ(Write(320, false, 3), 0); // there is room after it
        EXPECT_EQ(ReadBack(info.nextWritable, 320), Pattern(320, 3));
        EXPECT_EQ(ReadBack(0, 320), Pattern(320, 1));
    }
    EXPECT_GE(cutInTheData, 18);
}

TEST_F(ProcessesTest, WhateverIsKilledLeavesARecorderThatWorks)
{
    std::mt19937 random(77);
    std::uniform_int_distribution<int> delay(0, 20'000);
    for (int round = 0; round < 40; ++round) {
        const pid_t child = Start([&] {
            VirtualDrive own(recorders.Folder(u"A"_s), clock, pump);
            while (true) {
                Insert(u"cd-rw");
                own.Write(Order(64), {});
                own.Erase(false, {});
                own.Eject();
                own.CloseTray();
                Insert(u"dvd+rw", DiscPreset::Closed);
                own.Erase(true, {});
            }
            return 0;
        });
        std::this_thread::sleep_for(microseconds(delay(random))); // may be found at any moment
        kill(child, SIGKILL);
        WaitFor(child);
        const Description now = Now();
        if (now.disc) {
            EXPECT_TRUE(
                std::filesystem::exists(recorders.Folder(u"A"_s).SectorPath(now.disc->sectorFile)));
        }
        EXPECT_EQ(ExamineError(), 0);
    }
    Insert(u"dvd+r");
    ASSERT_EQ(Write(100), 0);
    EXPECT_EQ(ReadBack(0, 100), Pattern(100, 7));
}

} // namespace velmora::virtualdrive::test
