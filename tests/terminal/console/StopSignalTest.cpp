// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/console/StopSignal.h"

#include "terminal/console/ExitCode.h"
#include "tests/terminal/ScratchFolder.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>

namespace velmora::terminal {

TEST(StopSignalTest, EachOfTheThreeSignalsAsksToStop)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const StopSignal stop;
        EXPECT_FALSE(stop.Requested());
        std::raise(signal);
        EXPECT_TRUE(stop.Requested());
    }
}

TEST(StopSignalTest, AnIgnoredSignalStaysIgnored)
{
    std::signal(SIGHUP, SIG_IGN);
    {
        const StopSignal stop;
        std::raise(SIGHUP);
        EXPECT_FALSE(stop.Requested());
    }
    std::signal(SIGHUP, SIG_DFL);
}

TEST(StopSignalDeathTest, TheSecondSignalEndsAtOnceAndRemovesThePartialFile)
{
    const ScratchFolder scratch;
    const std::string partial = scratch.File("a.iso.part");
    const auto stopTwice = [&] {
        StopSignal stop;
        stop.SetPartialFile(partial);
        std::raise(SIGINT);
        std::raise(SIGINT);
    };
    EXPECT_EXIT(stopTwice(), testing::ExitedWithCode(static_cast<int>(ExitCode::Stopped)), "");
    EXPECT_FALSE(std::filesystem::exists(partial));
}

TEST(StopSignalTest, APatientProcessOutlivesAnyNumberOfSignals)
{
    StopSignal stop;
    stop.SetPatient(true);
    std::raise(SIGINT);
    std::raise(SIGINT);
    std::raise(SIGTERM);
    EXPECT_TRUE(stop.Requested());
}

TEST(StopSignalDeathTest, PatienceEnds)
{
    const auto stopTwice = [] {
        StopSignal stop;
        stop.SetPatient(true);
        std::raise(SIGINT);
        stop.SetPatient(false);
        std::raise(SIGINT);
    };
    EXPECT_EXIT(stopTwice(), testing::ExitedWithCode(static_cast<int>(ExitCode::Stopped)), "");
}

TEST(StopSignalDeathTest, AFileThatIsDoneIsNotRemoved)
{
    const ScratchFolder scratch;
    const std::string done = scratch.File("a.iso");
    const auto stopTwice = [&] {
        StopSignal stop;
        stop.SetPartialFile(done);
        stop.SetPartialFile({});
        std::raise(SIGINT);
        std::raise(SIGTERM);
    };
    EXPECT_EXIT(stopTwice(), testing::ExitedWithCode(static_cast<int>(ExitCode::Stopped)), "");
    EXPECT_TRUE(std::filesystem::exists(done));
}

} // namespace velmora::terminal
