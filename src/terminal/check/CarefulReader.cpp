// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/check/CarefulReader.h"

#include "drive/SectorSize.h"
#include "mastering/comparison/SlowReading.h"

#include <algorithm>

namespace velmora::terminal {

using mastering::ReadEnd;

namespace {

constexpr qint64 kBlockSectors = 32; // an error correction block of Blu-ray, two of DVD

} // namespace

void Append(std::vector<SectorRange>& ranges, SectorRange added)
{
    if (!ranges.empty() && ranges.back().last + 1 == added.first) {
        ranges.back().last = added.last;
    } else {
        ranges.push_back(added);
    }
}

bool CarefulReader::Read(qint64 firstSector, std::span<std::byte> out)
{
    const ReadEnd end = source_.Read(firstSector, out);
    isStopped_ = isStopped_ || end == ReadEnd::Stopped;
    if (end == ReadEnd::Unreadable) {
        const mastering::SlowReading slow(source_);
        ReadSmaller(firstSector, out, kBlockSectors);
    }
    return !isStopped_;
}

void CarefulReader::ReadSmaller(qint64 firstSector, std::span<std::byte> out, qint64 step)
{
    while (!out.empty() && !isStopped_) {
        const auto part = out.first(std::min<std::size_t>(
            out.size(), static_cast<std::size_t>(step * drive::kSectorBytes)));
        const auto sectors = static_cast<qint64>(part.size()) / drive::kSectorBytes;
        const ReadEnd end = source_.Read(firstSector, part);
        isStopped_ = isStopped_ || end == ReadEnd::Stopped;
        if (end == ReadEnd::Unreadable && sectors > 1) {
            ReadSmaller(firstSector, part, 1);
        } else if (end == ReadEnd::Unreadable) {
            std::ranges::fill(part, std::byte {});
            Append(unreadable_, {firstSector, firstSector});
            ++unreadableCount_;
        }
        firstSector += sectors;
        out = out.subspan(part.size());
    }
}

} // namespace velmora::terminal
