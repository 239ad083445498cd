// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/RunExitCode.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

using imapi::ComparisonEnd;
using writing::RunEnding;
using writing::RunReport;

namespace {

RunReport Written(ComparisonEnd compared, RunEnding ending = RunEnding::Done)
{
    return {.ending = ending, .isWritten = true, .comparison = {.end = compared}};
}

} // namespace

TEST(RunExitCodeTest, AGoodDiscIsDone)
{
    EXPECT_EQ(ExitCodeOf(Written(ComparisonEnd::Same)), ExitCode::Done);
    EXPECT_EQ(ExitCodeOf(Written(ComparisonEnd::Unwanted)), ExitCode::Done);
    RunReport kept = Written(ComparisonEnd::Same);
    kept.errorNumber = -1;
    EXPECT_EQ(ExitCodeOf(kept), ExitCode::Done) << "the drive didn't give it back";
}

TEST(RunExitCodeTest, ADiscThatLacksSomethingOrWasNotComparedIsIncomplete)
{
    EXPECT_EQ(ExitCodeOf(Written(ComparisonEnd::Impossible)), ExitCode::Incomplete);
    RunReport report = Written(ComparisonEnd::Same);
    report.leftOut = {{}};
    EXPECT_EQ(ExitCodeOf(report), ExitCode::Incomplete);
    report.leftOut.clear();
    report.changedSources = {text::ProgramPath(QStringLiteral("\\a"))};
    EXPECT_EQ(ExitCodeOf(report), ExitCode::Incomplete);
    report.errorNumber = -1;
    EXPECT_EQ(ExitCodeOf(report), ExitCode::Incomplete) << "and the drive didn't give it back";
}

TEST(RunExitCodeTest, AHurtDiscIsAFailureHoweverTheRunEnded)
{
    EXPECT_EQ(ExitCodeOf(Written(ComparisonEnd::Hurt, RunEnding::Failed)), ExitCode::Failed);
    EXPECT_EQ(ExitCodeOf(Written(ComparisonEnd::Hurt, RunEnding::Stopped)), ExitCode::Failed);
}

TEST(RunExitCodeTest, AStopIsTold)
{
    EXPECT_EQ(ExitCodeOf({.ending = RunEnding::Stopped}), ExitCode::Stopped);
    EXPECT_EQ(ExitCodeOf(Written(ComparisonEnd::Stopped, RunEnding::Stopped)), ExitCode::Stopped);
    EXPECT_EQ(ExitCodeOf(Written(ComparisonEnd::Same, RunEnding::Stopped)), ExitCode::Stopped);
}

TEST(RunExitCodeTest, WhatWasNotWrittenHasFailed)
{
    for (const RunEnding ending :
        {RunEnding::NotBegun, RunEnding::Refused, RunEnding::GivenUp, RunEnding::Failed}) {
        EXPECT_EQ(ExitCodeOf({.ending = ending}), ExitCode::Failed);
    }
}

} // namespace velmora::terminal
