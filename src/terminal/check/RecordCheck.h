// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "records/BurnRecords.h"
#include "terminal/check/DiscCheck.h"

#include <optional>

namespace velmora::terminal {

/// Reads a disc from end to end, by the record of its burn. A file is told from its neighbours by
/// its own digest; what differs elsewhere is told by its sectors.
CheckFindings CheckByRecord(
    const records::BurnRecord& record, CarefulReader& reader, const CheckProgress& progress);

/// The number of the record of the disc's burn: the newest that says of some place of the disc what
/// is there, else the newest of the disc's name. Nothing for none.
/// @param volume  the disc's name, empty where it isn't known
std::optional<int> FindRecord(
    const records::BurnRecords& records, SectorSource& source, const std::string& volume);

/// Is that surely not the disc of the burn? Neither at its beginning nor in its middle nor at its
/// end it is as that burn has written it, and it has another name or is the disc of another burn.
/// @param volume  the disc's name, empty where it isn't known
bool IsOtherDisc(const records::BurnRecord& record,
    const records::BurnRecords& records,
    SectorSource& source,
    const std::string& volume);

} // namespace velmora::terminal
