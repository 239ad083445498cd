// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <vector>

namespace velmora::wizard {

/// How fast a recording was written, stretch by stretch: a curve with few points, however long the
/// recording is.
class SpeedProfile {
public:
    /// The number of stretches in a whole recording.
    static constexpr int kStretches = 60;

    /// The speed at the end of a stretch.
    struct Point {
        double share;            ///< of the recording, 0 to 1
        double sectorsPerSecond; ///< over the stretch
    };

    void Clear();
    /// Notes how many sectors of the recording were done at a time, in seconds from its start.
    void Reach(qint64 done, qint64 sectors, double seconds);

    const std::vector<Point>& Points() const { return points_; }
    /// The highest point, 0 while there is none.
    double Highest() const;

private:
    std::vector<Point> points_;
    qint64 lastDone_ = 0;
    double lastSeconds_ = 0;
};

} // namespace velmora::wizard
