// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mastering/isofile/SectorReader.h"

#include <optional>

namespace velmora::mastering {

/// The volume space of a primary volume descriptor (ECMA-119 8.4), in sectors of 2048 bytes from
/// the recording's start; nothing without ISO 9660.
std::optional<qint64> EndOfIso9660(const SectorReader& recording);

/// What an anchor of UDF leads to; sectors are counted from the start of the disc.
struct UdfVolume {
    qint64 partitionEnd = 0; ///< sector after the partition; 0 if none was found
    qint64 sequencesEnd = 0; ///< sector after both volume descriptor sequences
    /// It is recorded bit by bit, by a virtual allocation table (UDF 2.60, 2.2.11), and has no end
    /// until it is closed.
    bool isVirtual = false;
};

/// The volume of the anchor at sector 256 (ECMA-167 3/8.4.2, 3/10.2); nothing without an anchor.
std::optional<UdfVolume> FindUdfVolume(const SectorReader& recording);

/// Is the sector an anchor of UDF?
bool IsUdfAnchor(const Sector& sector);

/// Do the volume structures from sector 16 on name UDF (ECMA-167 2/9.1, 3/9.1)?
bool NamesUdf(const SectorReader& recording);

} // namespace velmora::mastering
