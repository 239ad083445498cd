// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/IsoHierarchy.h"

#include <algorithm>

namespace velmora::image {

namespace {

constexpr std::uint64_t kRememberEvery
    = std::uint64_t {64} * 1024; // bytes of records between remembered places

std::uint64_t NextSector(std::uint64_t at)
{
    return (at + kSectorSize - 1) / kSectorSize * kSectorSize;
}

/// Moves to the next sector if this many bytes don't fit into the rest of the current one.
void KeepInSector(std::uint64_t& at, std::uint32_t length)
{
    if (at % kSectorSize + length > kSectorSize) {
        at = NextSector(at);
    }
}

} // namespace

void IsoHierarchy::Settle(Position& position, const Shape& shape) const
{
    KeepInSector(position.at, shape.recordLength);
    if (shape.continuationLength != 0) {
        KeepInSector(position.continuationAt, shape.continuationLength);
    }
}

/// Moves to the next record; false after the last one of the last directory.
bool IsoHierarchy::Advance(Position& position, const Shape& shape) const
{
    position.at += shape.recordLength;
    position.continuationAt += shape.continuationLength;
    if (++position.extent < shape.extentCount) {
        return true;
    }
    position.extent = 0;
    if (shape.entry != nullptr && shape.isDirectory) {
        ++position.subdirectory;
    }
    if (++position.entry < tree_.directories[position.directory].entryCount + kOwnRecords) {
        return true;
    }
    position.at = NextSector(position.at);
    position.entry = 0;
    position.subdirectory = 0;
    ++position.directory;
    if (position.directory == levels_[position.level + 1].firstDirectory) {
        ++position.level;
        position.at += NextSector(position.continuationAt);
        position.continuationAt = 0;
    }
    return position.directory < tree_.directories.size();
}

/// A level begins with the first directory whose parent is in the one before it.
void IsoHierarchy::FindLevels()
{
    levels_.emplace_back();
    std::uint32_t number = 0;
    for (const NamedDirectory& directory : tree_.directories) {
        if (number != 0 && directory.parent >= levels_.back().firstDirectory) {
            levels_.push_back({.firstDirectory = number});
        }
        ++number;
    }
    levels_.push_back({.firstDirectory = number});
}

void IsoHierarchy::Measure(const std::stop_token& stop)
{
    FindLevels();
    Position position;
    bool more = true;
    while (more && !stop.stop_requested()) {
        const Shape shape = ShapeOf(position);
        Settle(position, shape);
        if (remembered_.empty() || position.at >= remembered_.back().at + kRememberEvery) {
            remembered_.push_back(position);
        }
        if (position.entry == kSelf) {
            tree_.directories[position.directory].sector
                = static_cast<std::uint32_t>(position.at / kSectorSize);
        }
        const Position last = position;
        more = Advance(position, shape);
        if (position.directory != last.directory) {
            Close(last, shape, position);
        }
    }
}

/// Notes where a directory, and perhaps its level, ended with its last record.
void IsoHierarchy::Close(const Position& last, const Shape& shape, const Position& next)
{
    const std::uint64_t end = NextSector(last.at + shape.recordLength);
    NamedDirectory& done = tree_.directories[last.directory];
    done.bytes = static_cast<std::uint32_t>(end - done.sector * kSectorSize);
    const std::size_t identifier = last.directory == 0 ? 1 : tree_.FormOf(done).Size();
    pathTableSize_ += static_cast<std::uint32_t>(
        sizeof(PathTableRecordHead<Little>) + identifier + identifier % 2);
    if (next.level != last.level) {
        levels_[last.level].areasBegin = end;
        levels_[next.level].begin = next.at;
    }
}

std::uint64_t IsoHierarchy::Sectors() const { return levels_.back().begin / kSectorSize; }

std::uint64_t IsoHierarchy::Place(std::uint64_t firstSector)
{
    firstSector_ = firstSector;
    for (NamedDirectory& directory : tree_.directories) {
        directory.sector += static_cast<std::uint32_t>(firstSector);
    }
    return firstSector + Sectors();
}

std::uint64_t IsoHierarchy::AreaAt(const Position& position) const
{
    return levels_[position.level].areasBegin + position.continuationAt;
}

/// The last remembered position whose place is not after `at`.
IsoHierarchy::Position IsoHierarchy::Before(std::uint64_t at, PlaceOf place) const
{
    const auto behind = std::ranges::upper_bound(
        remembered_, at, {}, [&](const Position& position) { return (this->*place)(position); });
    return behind == remembered_.begin() ? remembered_.front() : *std::prev(behind);
}

void IsoHierarchy::Render(Window& window, const Contents& contents) const
{
    const std::uint64_t row = firstSector_ * kSectorSize;
    if (!window.Touches(row, row + levels_.back().begin)) {
        return;
    }
    RenderPart(window, contents, &IsoHierarchy::RecordAt);
    for (std::size_t i = 0; i + 1 < levels_.size(); ++i) {
        if (window.Touches(row + levels_[i].areasBegin, row + levels_[i + 1].begin)) {
            RenderPart(window, contents, &IsoHierarchy::AreaAt);
            return;
        }
    }
}

/// Makes all records that lie in the window, with the continuations of their fields.
void IsoHierarchy::RenderPart(Window& window, const Contents& contents, PlaceOf place) const
{
    const std::uint64_t row = firstSector_ * kSectorSize;
    const std::uint64_t end = window.End() - row;
    Position position = Before(std::max(window.Begin(), row) - row, place);
    Record record; // its room serves them all
    bool more = true;
    while (more && (this->*place)(position) < end) {
        const Shape shape = ShapeOf(position);
        Settle(position, shape);
        MakeRecord(position, shape, contents, record);
        window.Put(row + position.at, record.bytes);
        window.Put(row + AreaAt(position), record.continuation);
        more = Advance(position, shape);
    }
}

} // namespace velmora::image
