// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/platform/drives/DriveBench.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <string_view>
#include <utility>

namespace velmora::test {

inline constexpr int kForEver = std::numeric_limits<int>::max();

/// A drive on a clock that only the test advances, and what happens to it in the middle of its
/// work.
class HangBench : public DriveBench {
protected:
    HangBench()
    {
        drive = std::make_shared<drives::BurnDrive>(u"drive"_s,
            u"/dev/sr0"_s,
            std::make_shared<drives::LibraryThread>(),
            drives::BurnDriveContext {
                pump, hands, &unmounter, context.patience, context.mountTable});
    }

    /// Waits until the drive has got a command that begins so, then makes it happen.
    void After(std::string_view command, std::function<void()> happens)
    {
        emulated.ForgetLog();
        pump.onPump = [this, command, happens = std::move(happens)] {
            if (HasGot(command)) {
                const std::function<void()> now = happens;
                pump.onPump = {}; // and what it holds
                now();
            }
        };
    }

    /// From now on each pump takes this many seconds.
    void Run(double seconds)
    {
        pump.onPump = [this, seconds] { hands.Pause(seconds); };
    }

    bool HasGot(std::string_view command)
    {
        return std::ranges::any_of(emulated.Log(),
            [command](const std::string& line) { return line.starts_with(command); });
    }

    /// The text for the user of the error that the statement raises.
    template <class Statement> static QString WordsOfErrorOf(Statement&& statement)
    {
        try {
            std::forward<Statement>(statement)();
        } catch (const runtime::RuntimeError& failure) {
            return failure.Description();
        }
        return {};
    }

    FakePump quiet;
    FakeClock hands {quiet};
};

} // namespace velmora::test
