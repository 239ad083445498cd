// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <deque>
#include <functional>
#include <optional>

namespace velmora::runtime {

/// How fast a piece of work goes, and how long it still takes, by the last half minute of it. A
/// drive gets faster towards the rim of its disc: what lies further back tells nothing any more.
///
/// The amounts are of any unit, sectors or bytes, and only rise while one piece of work lasts.
class ProgressEstimate {
public:
    /// @param seconds  the time since some fixed moment; never goes back
    explicit ProgressEstimate(std::function<double()> seconds);

    /// A piece of work begins; what is known of another one is forgotten.
    void Begin();
    /// So much of it is done now.
    void Reach(qint64 done, qint64 total);

    /// Amount in a second; none before anything was done in some time.
    std::optional<double> PerSecond() const;
    /// Seconds to the end; none where a speed isn't known, or isn't measured for a second yet.
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
