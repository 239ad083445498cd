// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/SideThread.h"

#include "tests/support/WidgetApplication.h"

#include <QEventLoop>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>
#include <thread>

namespace velmora::test {

using namespace Qt::StringLiterals;

class SideThreadTest : public testing::Test {
protected:
    /// Works until told to give up, and reports its start.
    wizard::SideWork::Work Endless(std::promise<void>& began)
    {
        return [this, &began](const std::stop_token& stop) {
            began.set_value();
            std::mutex mutex;
            std::unique_lock lock(mutex);
            std::condition_variable_any wake;
            wake.wait(lock, stop, [] { return false; });
            return [this] { shown += u"endless"_s; };
        };
    }
    /// Shows its name at once.
    wizard::SideWork::Work Short(const QString& name)
    {
        return [this, name](const std::stop_token&) {
            return [this, name] {
                shown += name;
                loop.quit();
            };
        };
    }

    QEventLoop loop;
    QStringList shown;
    std::unique_ptr<wizard::SideThread> thread = std::make_unique<wizard::SideThread>();
};

TEST_F(SideThreadTest, WorkIsDoneBesideTheProgramAndShownByIt)
{
    const auto here = std::this_thread::get_id();
    std::thread::id worker;
    std::thread::id shower;
    thread->Begin([&](const std::stop_token&) {
        worker = std::this_thread::get_id();
        return [&] {
            shower = std::this_thread::get_id();
            loop.quit();
        };
    });
    loop.exec();
    EXPECT_NE(worker, here);
    EXPECT_EQ(shower, here);
}

TEST_F(SideThreadTest, TheNewestWins)
{
    std::promise<void> began;
    thread->Begin(Endless(began));
    began.get_future().wait();
    thread->Begin(Short(u"second"_s));
    thread->Begin(Short(u"third"_s));
    loop.exec();
    EXPECT_EQ(shown, QStringList {u"third"_s});
}

TEST_F(SideThreadTest, WhatIsDroppedStaysUnseenEvenWhenItWasWorkedOut)
{
    std::promise<void> began;
    thread->Begin([this, &began](const std::stop_token&) {
        began.set_value();
        return [this] { shown += u"first"_s; };
    });
    began.get_future().wait();
    thread->Drop();
    thread->Begin(Short(u"second"_s));
    loop.exec();
    EXPECT_EQ(shown, QStringList {u"second"_s});
}

TEST_F(SideThreadTest, TheEndStopsTheWorkAndWaitsForIt)
{
    std::promise<void> began;
    thread->Begin(Endless(began));
    began.get_future().wait();
    thread.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(shown, QStringList());
}

TEST_F(SideThreadTest, OneThatWasNeverUsedJustEnds)
{
    thread->Drop();
    thread.reset();
    EXPECT_EQ(shown, QStringList());
}

} // namespace velmora::test
