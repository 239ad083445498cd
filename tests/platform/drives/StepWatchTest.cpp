// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/StepWatch.h"

#include "drive/PublishedCodes.h"
#include "tests/support/ErrorNumberOf.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <future>

namespace velmora::test {

using namespace Qt::StringLiterals;
using drives::Step;

namespace {

/// Lets something happen in the middle of a look.
class CrossedClock final : public runtime::Clock {
public:
    double Timer() const override
    {
        if (onAsked) onAsked();
        return 0;
    }
    QDateTime Now() const override { return {}; }
    void Pause(double /*seconds*/) override { }

    std::function<void()> onAsked;
};

} // namespace

// A stop before the erase is told as one that left the disc as it was.
TEST(StepWatchTest, NoStepBeginsBetweenTheVerdictAndTheCut)
{
    constexpr std::chrono::milliseconds kLongEnough {100};
    CrossedClock clock;
    drives::StepWatch watch(u"/dev/no such drive"_s, clock);
    watch.Stop();
    std::future<void> erase;
    bool hasBegun = false;
    clock.onAsked = [&] {
        if (!erase.valid()) {
            erase = std::async(std::launch::async, [&] { watch.Enter(Step::Erasing); });
            hasBegun = erase.wait_for(kLongEnough) == std::future_status::ready;
        }
    };
    watch.Look();
    erase.wait();
    EXPECT_FALSE(hasBegun);
    EXPECT_EQ(ErrorNumberOf([&] { watch.RaiseFailure(); }),
        drive::MapHresult(drive::hresult::kCancelled));
}

} // namespace velmora::test
