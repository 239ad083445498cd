// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <deque>
#include <functional>
#include <optional>

namespace velmora::runtime {

/// The speed of a piece of work and the time it still takes, estimated from its last half minute. A
/// drive gets faster towards the rim of its disc, so older figures mislead.
///
/// The amounts are of any unit, sectors or bytes, and only rise while one piece of work lasts.
class ProgressEstimate {
public:
    /// @param seconds  the time since some fixed moment; never goes back
    explicit ProgressEstimate(std::function<double()> seconds);

    /// Starts a new piece of work; everything about the previous one is forgotten.
    void Begin();
    /// Reports the amount done so far.
    void Reach(qint64 done, qint64 total);

    /// Amount per second; none before anything was measured.
    std::optional<double> PerSecond() const;
    /// Seconds left; none if the speed is unknown, or measured for less than a second.
    std::optional<double> SecondsLeft() const;
    /// Seconds since the work began.
    double Elapsed() const { return seconds_() - begun_; }

private:
    struct Sample {
        double at;
        qint64 done;
    };

    std::function<double()> seconds_;
    double begun_;
    qint64 total_ = 0;
    Sample last_ {};
    std::deque<Sample> samples_; // the first is the one that the speed is measured from
};

} // namespace velmora::runtime
