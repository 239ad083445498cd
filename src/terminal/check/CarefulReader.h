// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/check/SectorSources.h"

#include <QtGlobal>

#include <vector>

namespace velmora::terminal {

/// Consecutive sectors of 2048 bytes, counted from the start of the disc.
struct SectorRange {
    qint64 first = 0;
    qint64 last = 0;

    bool operator==(const SectorRange&) const = default;
};

/// Adds sectors that lie after all others to a list of ranges.
void Append(std::vector<SectorRange>& ranges, SectorRange added);

/// Reads what can be read: if a stretch can't, its blocks are retried one by one as slowly as the
/// drive can, and then the sectors of each unreadable block.
class CarefulReader {
public:
    explicit CarefulReader(SectorSource& source)
        : source_(source)
    {
    }

    /// Sectors that can't be read give zeros. Errors: those of the source.
    /// @return false when it was stopped
    bool Read(qint64 firstSector, std::span<std::byte> out);

    bool IsStopped() const { return isStopped_; }
    /// Everything that couldn't be read so far.
    const std::vector<SectorRange>& Unreadable() const { return unreadable_; }
    qint64 UnreadableCount() const { return unreadableCount_; }

private:
    void ReadSmaller(qint64 firstSector, std::span<std::byte> out, qint64 step);

    SectorSource& source_;
    std::vector<SectorRange> unreadable_;
    qint64 unreadableCount_ = 0;
    bool isStopped_ = false;
};

} // namespace velmora::terminal
