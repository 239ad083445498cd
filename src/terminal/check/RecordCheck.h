// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/BurnRecords.h"
#include "terminal/check/DiscCheck.h"

#include <optional>

namespace velmora::terminal {

/// Reads a disc from end to end and compares it with the record of its burn. Each file is checked
/// by its own digest; differences elsewhere are reported as sectors.
CheckFindings CheckByRecord(
    const records::BurnRecord& record, CarefulReader& reader, const CheckProgress& progress);

/// The number of the record of the disc's burn: the newest one that matches some place of the disc,
/// else the newest with the disc's name. Nothing for none.
/// @param volume  the disc's name, empty if unknown
std::optional<int> FindRecord(
    const records::BurnRecords& records, SectorSource& source, const std::string& volume);

/// Is that surely not the disc of the burn? It is as that burn wrote it neither at its beginning
/// nor in its middle nor at its end, and it has another name or is the disc of another burn.
/// @param volume  the disc's name, empty if unknown
bool IsOtherDisc(const records::BurnRecord& record,
    const records::BurnRecords& records,
    SectorSource& source,
    const std::string& volume);

} // namespace velmora::terminal
