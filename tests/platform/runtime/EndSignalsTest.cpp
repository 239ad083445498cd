// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "runtime/EndSignals.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <csignal>

namespace velmora::runtime {

namespace {

/// The event loop of a program; this test program has no other.
class EndSignalsTest : public testing::Test {
protected:
    int argc_ = 1;
    std::array<char, 5> name_ {"test"};
    std::array<char*, 2> argv_ {name_.data(), nullptr};
    QCoreApplication application_ {argc_, argv_.data()};
};

} // namespace

TEST_F(EndSignalsTest, EachSignalThatEndsAProgramIsToldFromTheEventLoop)
{
    int told = 0;
    const EndSignals ends([&told] { ++told; });
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        std::raise(signal);
        EXPECT_EQ(told, 0) << "not from within the signal";
        QCoreApplication::processEvents();
        EXPECT_EQ(told, 1) << signal;
        told = 0;
    }
}

TEST_F(EndSignalsTest, WhatTheProcessWasStartedToIgnoreStaysIgnored)
{
    std::signal(SIGHUP, SIG_IGN);
    int told = 0;
    {
        const EndSignals ends([&told] { ++told; });
        std::raise(SIGHUP);
        QCoreApplication::processEvents();
    }
    std::signal(SIGHUP, SIG_DFL);
    EXPECT_EQ(told, 0);
}

} // namespace velmora::runtime
