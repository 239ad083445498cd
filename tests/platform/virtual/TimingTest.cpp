// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

#include "runtime/Clock.h"

#include <algorithm>
#include <atomic>

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;
using drive::WriteAction;

class TimingTest : public VirtualBench {
protected:
    TimingTest()
    {
        Change([](Description& now) { now.drive.realTiming = true; });
    }
    void InsertAndWait(QStringView key)
    {
        Insert(key);
        clock.Pause(10);
    }
};

TEST_F(TimingTest, AWriteTakesItsSectorsBySpeed)
{
    InsertAndWait(u"dvd+r");
    std::vector<double> reports;
    drive::WriteOrder order {.source = ZeroSource, .sectors = 27'200, .speed = 2720};
    const double start = clock.Timer();
    drive.Write(order, [&](const drive::WriteProgress& progress) {
        if (progress.action == WriteAction::WritingData) {
            reports.push_back(clock.Timer());
        }
        return true;
    });
    const DriveDelays delays;
    EXPECT_NEAR(clock.Timer() - start, 10 + delays.prepare + delays.calibrate + delays.finish, 0.5);
    EXPECT_NEAR(reports.back() - reports.front(), 10, 0.2);
    EXPECT_NEAR(static_cast<double>(reports.size()), 250, 5); // 25 a second
}

TEST_F(TimingTest, AnAskedSpeedIsRoundedDown)
{
    const auto secondsAt = [&](quint32 speed) {
        InsertAndWait(u"dvd+r");
        const double start = clock.Timer();
        drive.Write({.source = ZeroSource, .sectors = 21'760, .speed = speed}, {});
        const DriveDelays delays;
        return clock.Timer() - start - delays.prepare - delays.calibrate - delays.finish;
    };
    EXPECT_NEAR(secondsAt(0xFFFFFFFF), 2, 0.2); // 10,880
    EXPECT_NEAR(secondsAt(6000), 4, 0.2);       // 5440
    EXPECT_NEAR(secondsAt(4), 8, 0.2);          // 2720, the slowest
}

TEST_F(TimingTest, ADriveNeedsAWhileToKnowADisc)
{
    Insert(u"cd-r");
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kBecomingReady));
    clock.Pause(DriveDelays {}.ready + 0.1);
    EXPECT_EQ(ExamineError(), 0);
    const double start = clock.Timer();
    drive.Eject();
    EXPECT_NEAR(clock.Timer() - start, DriveDelays {}.tray, 0.01);
}

TEST_F(TimingTest, WithoutItNothingTakesTime)
{
    Change([](Description& now) { now.drive.realTiming = false; });
    Insert(u"dvd+rw");
    const double start = clock.Timer();
    ASSERT_EQ(Write(1000), 0);
    drive.Erase(true, {});
    drive.Eject();
    drive.CloseTray();
    EXPECT_EQ(clock.Timer(), start);
}

namespace {

/// Lets another thread wait for pumps.
class WatchingPump final : public runtime::EventPump {
public:
    void Pump() override
    {
        ++pumps_;
        pumps_.notify_all();
    }
    /// Waits on another thread for this many more pumps.
    void Await(int pumps) const
    {
        const int wanted = pumps_ + pumps;
        for (int seen = pumps_; seen < wanted; seen = pumps_) {
            pumps_.wait(seen);
        }
    }

private:
    std::atomic<int> pumps_ = 0;
};

/// Counts the waits.
class CountingClock final : public runtime::Clock {
public:
    explicit CountingClock(runtime::Clock& clock)
        : clock_(clock)
    {
    }
    double Timer() const override { return clock_.Timer(); }
    QDateTime Now() const override { return clock_.Now(); }
    void Pause(double seconds) override
    {
        ++pauses;
        clock_.Pause(seconds);
    }

    int pauses = 0;

private:
    runtime::Clock& clock_;
};

} // namespace

TEST_F(TimingTest, ASlowSourceKeepsNobodyFromThePump)
{
    Change([](Description& now) { now.drive.realTiming = false; });
    Insert(u"dvd+r");
    WatchingPump watching;
    runtime::SystemClock systemClock(watching);
    VirtualDrive real(recorders.Folder(u"A"_s), systemClock, watching);
    drive::WriteOrder order = Order(256);
    int given = 0;
    order.source = [&](std::span<std::byte> out) {
        watching.Await(10); // without them it would never give anything
        ZeroSource(out);
        ++given;
    };
    real.Write(order, {});
    EXPECT_GT(given, 0);
}

// The benchmark measures the processor time that this costs.
TEST_F(TimingTest, PacedWritingSleepsFromTickToTick)
{
    Change([](Description& now) { now.drive.delays = {0, 0, 0, 0, 0, 0, 0}; });
    Insert(u"bd-r");
    CountingClock counting(clock);
    VirtualDrive paced(recorders.Folder(u"A"_s), counting, pump);
    constexpr qint64 kTwoSecondsAt16x = 2 * 35'120;
    const double start = clock.Timer();

    paced.Write({.source = ZeroSource, .sectors = kTwoSecondsAt16x}, {});

    EXPECT_NEAR(clock.Timer() - start, 2, 0.1);
    EXPECT_NEAR(counting.pauses, 50, 3);
}

} // namespace velmora::virtualdrive::test
