// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/check/SectorSources.h"

#include "drive/SectorSize.h"
#include "unicode/WholeTransfers.h"

namespace velmora::terminal {

using mastering::ReadEnd;

ReadEnd ImageSectors::Read(qint64 firstSector, std::span<std::byte> out)
{
    if (stopRequested_()) {
        return ReadEnd::Stopped;
    }
    const auto place = static_cast<std::uint64_t>(firstSector * drive::kSectorBytes);
    return unicode::ReadWhole(file_.Get(), out, place) == out.size() ? ReadEnd::Read
                                                                     : ReadEnd::Unreadable;
}

} // namespace velmora::terminal
