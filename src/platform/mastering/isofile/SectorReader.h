// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/SectorSize.h"

#include <QtGlobal>

#include <array>
#include <cstddef>

namespace velmora::mastering {

using Sector = std::array<std::byte, drive::kSectorBytes>;

/// The sectors of a recording, on a disc or in an image file.
class SectorReader {
public:
    SectorReader() = default;
    virtual ~SectorReader() = default;
    SectorReader(const SectorReader&) = delete;
    SectorReader& operator=(const SectorReader&) = delete;
    SectorReader(SectorReader&&) = delete;
    SectorReader& operator=(SectorReader&&) = delete;

    /// Whether a sector, counted from the recording's start, is part of it as far as known.
    virtual bool Holds(qint64 sector) const = 0;
    /// A sector, counted from the recording's start.
    virtual Sector Read(qint64 sector) const = 0;
    /// A sector by its number on the disc, which is what the structures of UDF hold.
    virtual Sector ReadOnDisc(qint64 sector) const = 0;
};

} // namespace velmora::mastering
