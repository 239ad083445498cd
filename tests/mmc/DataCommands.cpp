// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/mmc/Bytes.h"
#include "tests/mmc/Target.h"

#include <algorithm>

namespace velmora::mmc {

namespace {

constexpr std::int64_t kDataSector = 2048;

struct Extent {
    std::int64_t first;
    std::int64_t count;

    bool Holds(std::int64_t sector) const
    {
        return sector >= 0 && sector >= first && sector < first + count;
    }
};

// READ and WRITE of 10 and of 12 bytes differ in the place of the count.
Extent ExtentOf(std::span<const std::uint8_t> block)
{
    const bool isLong = block[0] >= 0xA0;
    return {GetAddress(block, 2), isLong ? Get32(block, 6) : Get16(block, 7)};
}

} // namespace

void Target::WriteFault(std::int64_t address, std::int64_t count, Outcome& outcome)
{
    Faults& faults = state_.faults;
    const Extent extent {address, count};
    if (faults.writeProtected) {
        outcome.sense = kWriteProtected;
    } else if (extent.Holds(faults.unplugsAt)) {
        faults.unplugged = true;
        outcome.hostStatus = 1;
    } else if (extent.Holds(faults.trayOpensAt)) {
        state_.trayOpen = true;
        recorder_.Forget();
        outcome.sense = kTrayOpen;
    } else if (extent.Holds(faults.timesOutAt)) {
        faults.timesOutAt = -1;
        outcome.hostStatus = faults.transportStatus;
    } else if (faults.busyWrites > 0 && faults.busyAt >= 0 && address >= faults.busyAt) {
        --faults.busyWrites;
        outcome.sense = kLongWriteInProgress;
    } else if (extent.Holds(faults.writeFailsAt)) {
        outcome.sense = faults.writeSense;
    } else if (extent.Holds(faults.hangsAt)) {
        faults.hangsAt = -1;
        outcome.hangMilliseconds = faults.hangMilliseconds;
    }
}

Outcome Target::Write(const Command& command)
{
    const Extent extent = ExtentOf(command.block);
    Outcome outcome;
    if (command.data.size() != static_cast<std::size_t>(extent.count * kDataSector)) {
        recorder_.Violations().emplace_back("WRITE with another length than it says");
        outcome.sense = kInvalidField;
        return outcome;
    }
    WriteFault(extent.first, extent.count, outcome);
    if (outcome.sense || outcome.hostStatus != 0) {
        return outcome;
    }
    outcome.sense = recorder_.Prepare(extent.first, extent.count);
    if (outcome.sense) {
        return outcome;
    }
    recorder_.Advance(extent.first, extent.count);
    const std::int64_t inFront = std::clamp<std::int64_t>(-extent.first, 0, extent.count);
    sectors_.Write(extent.first + inFront,
        command.data.subspan(static_cast<std::size_t>(inFront * kDataSector)));
    outcome.transferred = command.data.size();
    return outcome;
}

bool Target::Readable(std::int64_t first, std::int64_t count) const
{
    const Disc& disc = state_.disc;
    if (disc.Overwritable()) {
        return first >= 0 && first + count <= disc.formattedSize;
    }
    return std::ranges::any_of(disc.tracks, [first, count](const Track& track) {
        const std::int64_t end = track.start + track.written;
        return first >= track.start && first + count <= end;
    });
}

Outcome Target::Read(const Command& command)
{
    const Extent extent = ExtentOf(command.block);
    Outcome outcome;
    const Disc& disc = state_.disc;
    if (!Readable(extent.first, extent.count)) {
        const bool runOut = disc.IsCd() && extent.first + extent.count <= disc.End();
        outcome.sense = runOut ? kIllegalMode : kAddressOutOfRange;
    } else if (extent.Holds(state_.faults.readFailsAt)) {
        outcome.sense = kUnreadable;
    } else {
        outcome.transferred
            = std::min(command.data.size(), static_cast<std::size_t>(extent.count * kDataSector));
        sectors_.Read(extent.first, command.data.first(outcome.transferred));
    }
    return outcome;
}

} // namespace velmora::mmc
