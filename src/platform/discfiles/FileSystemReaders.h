// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "discfiles/DiscFiles.h"

namespace velmora::discfiles {

inline constexpr std::size_t kSectorBytes = 2048;

// Each lists the files of one file system, in any order; nothing if it isn't there.

std::optional<Listing> ListUdf(const ReadSectors& read);
std::optional<Listing> ListIso(const ReadSectors& read, std::uint32_t session);

} // namespace velmora::discfiles
