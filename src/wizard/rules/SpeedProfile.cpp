// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/SpeedProfile.h"

#include <algorithm>

namespace velmora::wizard {

void SpeedProfile::Clear() { *this = {}; }

void SpeedProfile::Reach(qint64 done, qint64 sectors, double seconds)
{
    if (done < lastDone_ || sectors <= 0) {
        Clear();
    }
    // A stretch that took no time has no speed: it is measured with the next one.
    const bool isStretch = (done - lastDone_) * kStretches >= sectors || done == sectors;
    if (!isStretch || done == lastDone_ || seconds <= lastSeconds_) {
        return;
    }
    points_.push_back({.share = static_cast<double>(done) / static_cast<double>(sectors),
        .sectorsPerSecond = static_cast<double>(done - lastDone_) / (seconds - lastSeconds_)});
    lastDone_ = done;
    lastSeconds_ = seconds;
}

double SpeedProfile::Highest() const
{
    double highest = 0;
    for (const Point& point : points_) {
        highest = std::max(highest, point.sectorsPerSecond);
    }
    return highest;
}

} // namespace velmora::wizard
