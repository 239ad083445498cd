// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mastering/DriveMastering.h"
#include "terminal/disc/DiscContext.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeDrive.h"
#include "tests/terminal/ScratchFolder.h"
#include "tests/terminal/ScriptedInput.h"
#include "tests/terminal/TranscriptScreen.h"

#include <gtest/gtest.h>

#include <memory>

namespace velmora::terminal {

/// One drive with a blank DVD+R, and everything that a command needs to write its disc.
class DiscJobBench : public testing::Test {
protected:
    DiscJobBench()
    {
        drive->facts.paths = {QStringLiteral("/dev/sr0")};
        drive->disc = test::DiscOf(27, drive::DiscState::Blank);
    }

    DiscContext Context() { return ContextOn(screen); }
    DiscContext ContextOn(TerminalScreen& shown)
    {
        return {.screen = shown,
            .input = input,
            .mastering = *mastering,
            .witness = witness,
            .pump = pump,
            .clock = clock,
            .stopRequested = [this] { return isStopped; },
            .insistOnOrderlyEnd = [](bool) {}};
    }

    ScratchFolder folder;
    test::FakePump pump;
    test::FakeClock clock {pump, QDateTime::fromMSecsSinceEpoch(1'700'000'000'000)};
    std::shared_ptr<test::FakeDriveSource> source = std::make_shared<test::FakeDriveSource>();
    std::shared_ptr<test::FakeDrive> drive = source->Plug(QStringLiteral("a"));
    WriteWitness witness;
    std::unique_ptr<imapi::Mastering> mastering
        = mastering::MasteringOf(Witnessed({source}, witness), clock);
    ScriptedInput input;
    TranscriptScreen screen;
    bool isStopped = false;
};

} // namespace velmora::terminal
