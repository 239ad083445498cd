// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/Clock.h"
#include "runtime/EventPump.h"
#include "tests/support/FakeClock.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QObject>

#include <array>
#include <memory>
#include <string>

using namespace velmora;

namespace {

/// Notes that an event reached it.
class ClickTarget : public QObject {
public:
    bool event(QEvent* event) override
    {
        clicked = clicked || event->type() == QEvent::User;
        return true;
    }

    bool clicked = false;
};

} // namespace

TEST(PumpEventsTest, PassesAreOneMoreThanTheCount)
{
    test::FakePump pump;
    runtime::PumpEvents(pump);
    EXPECT_EQ(pump.pumps, 1);
    runtime::PumpEvents(pump, 100);
    EXPECT_EQ(pump.pumps, 102);
    runtime::PumpEvents(pump, -1);
    EXPECT_EQ(pump.pumps, 102);
}

TEST(PumpEventsTest, TheSystemsPumpLetsWaitingEventsIn)
{
    int argc = 1;
    std::string name = "test";
    std::array<char*, 2> argv {name.data(), nullptr};
    const QCoreApplication application(argc, argv.data());
    ClickTarget button;
    // The queue owns the event from here on.
    QCoreApplication::postEvent(&button, std::make_unique<QEvent>(QEvent::User).release());
    EXPECT_FALSE(button.clicked);

    runtime::SystemEventPump pump;
    pump.Pump();

    EXPECT_TRUE(button.clicked);
}

TEST(SystemClockTest, APauseLastsItsTimeAndPumpsMeanwhile)
{
    test::FakePump pump;
    runtime::SystemClock clock(pump);
    const double start = clock.Timer();
    clock.Pause(0.05);
    EXPECT_GE(clock.Timer() - start, 0.05);
    EXPECT_GT(pump.pumps, 1);
}

TEST(SystemClockTest, APauseOfNothingDoesNotPump)
{
    test::FakePump pump;
    runtime::SystemClock clock(pump);
    clock.Pause(0);
    EXPECT_EQ(pump.pumps, 0);
}

TEST(SystemClockTest, NowIsThePresentMoment)
{
    test::FakePump pump;
    const runtime::SystemClock clock(pump);
    const QDateTime before = QDateTime::currentDateTime();
    const QDateTime now = clock.Now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, QDateTime::currentDateTime());
}

TEST(FakeClockTest, HalfAMinuteOfWaitingTakesNoTime)
{
    test::FakePump pump;
    test::FakeClock clock(pump, QDateTime {QDate {2024, 1, 1}, QTime {0, 0}});
    QElapsedTimer real;
    real.start();
    for (int i = 0; i < 6; ++i) {
        clock.Pause(5);
    }
    EXPECT_LT(real.elapsed(), 5000);
    EXPECT_EQ(clock.Timer(), 30);
    EXPECT_EQ(clock.Now(), (QDateTime {QDate {2024, 1, 1}, QTime {0, 0, 30}}));
    EXPECT_EQ(pump.pumps, 6);
}
