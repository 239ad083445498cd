// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"

namespace velmora::mastering {

/// Makes a source of sectors read slowly for its lifetime, because drives can then read sectors
/// that fail at full speed.
template <class Source> class SlowReading {
public:
    explicit SlowReading(Source& source)
        : source_(source)
    {
        source_.SetSpeed(drive::ReadSpeed::Slowest);
    }
    ~SlowReading() { source_.SetSpeed(drive::ReadSpeed::Fastest); }
    SlowReading(const SlowReading&) = delete;
    SlowReading& operator=(const SlowReading&) = delete;
    SlowReading(SlowReading&&) = delete;
    SlowReading& operator=(SlowReading&&) = delete;

private:
    Source& source_;
};

} // namespace velmora::mastering
