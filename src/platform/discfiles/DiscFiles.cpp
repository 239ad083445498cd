// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "discfiles/DiscFiles.h"

#include "discfiles/FileSystemReaders.h"

#include <algorithm>

namespace velmora::discfiles {

namespace {

std::uint32_t FirstSectorOf(const DiscFile& file)
{
    return file.extents.empty() ? 0 : file.extents.front().firstSector;
}

} // namespace

std::optional<Listing> ListFiles(const ReadSectors& read, std::uint32_t session)
{
    std::optional<Listing> listing;
    if (session == 0) { // UDF doesn't know later sessions
        listing = ListUdf(read);
    }
    if (!listing) {
        listing = ListIso(read, session);
    }
    if (listing) {
        std::ranges::stable_sort(listing->files, {}, FirstSectorOf);
    }
    return listing;
}

} // namespace velmora::discfiles
