// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/mmc/Bytes.h"
#include "tests/mmc/Target.h"

#include <algorithm>
#include <array>

namespace velmora::mmc {

namespace {

constexpr std::int64_t kDataSector = 2048;
constexpr int kSingleSpeedOfBluRay = 4500; // 1000 bytes a second; more than 1x of any other disc

using Sector = std::array<std::uint8_t, kDataSector>;

// READ and WRITE of 10 and of 12 bytes differ in the count's position.
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
    Record(extent, command.data);
    outcome.transferred = command.data.size();
    return outcome;
}

void Target::Record(const Extent& extent, std::span<const std::uint8_t> bytes)
{
    const Faults& faults = state_.faults;
    Sector kept {};
    if (extent.Holds(faults.swallowsAt)) {
        sectors_.Read(faults.swallowsAt, kept);
    }
    const std::int64_t inFront = std::clamp<std::int64_t>(-extent.first, 0, extent.count);
    sectors_.Write(
        extent.first + inFront, bytes.subspan(static_cast<std::size_t>(inFront * kDataSector)));
    if (extent.Holds(faults.swallowsAt)) {
        sectors_.Write(faults.swallowsAt, kept);
    }
    if (extent.Holds(faults.altersAt)) {
        Sector altered {};
        sectors_.Read(faults.altersAt, altered);
        altered[altered.size() / 2] ^= 4;
        sectors_.Write(faults.altersAt, altered);
    }
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

void Target::ReadFault(const Extent& extent, Outcome& outcome)
{
    Faults& faults = state_.faults;
    if (extent.Holds(faults.unplugsAtRead)) {
        faults.unplugged = true;
        outcome.hostStatus = 1;
        return;
    }
    if (extent.Holds(faults.swapsAtRead)) {
        faults.swapsAtRead = -1;
        constexpr std::uint8_t kOther = 0x5A;
        sectors_.Fill(kOther);
        changed_ = true;
    }
    const bool isTooFast = readSpeed_ == 0 || readSpeed_ > kSingleSpeedOfBluRay;
    if (extent.Holds(faults.readFailsAt) || (isTooFast && extent.Holds(faults.slowReadsAt))) {
        outcome.sense = kUnreadable;
    } else if (extent.Holds(faults.hangsAtRead)) {
        faults.hangsAtRead = -1;
        outcome.hangMilliseconds = faults.hangMilliseconds;
    }
}

Outcome Target::Read(const Command& command)
{
    const Extent extent = ExtentOf(command.block);
    Outcome outcome;
    ReadFault(extent, outcome);
    if (outcome.hostStatus != 0) {
        return outcome;
    }
    const Disc& disc = state_.disc;
    if (!Readable(extent.first, extent.count)) {
        const bool runOut = disc.IsCd() && extent.first + extent.count <= disc.End();
        outcome.sense = runOut ? kIllegalMode : kAddressOutOfRange;
    } else if (!outcome.sense) {
        outcome.transferred
            = std::min(command.data.size(), static_cast<std::size_t>(extent.count * kDataSector));
        sectors_.Read(extent.first, command.data.first(outcome.transferred));
    }
    return outcome;
}

} // namespace velmora::mmc
