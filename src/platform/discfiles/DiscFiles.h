// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace velmora::discfiles {

/// Bytes of a file that lie together on a disc.
struct Extent {
    std::uint32_t firstSector = 0; ///< of 2048 bytes, from the start of the disc
    std::uint64_t bytes = 0;
};

/// A file as a disc holds it.
struct DiscFile {
    std::string path; ///< '/' between the names, no leading one; the bytes that a reader shows
    std::uint64_t bytes = 0;
    std::vector<Extent> extents; ///< in file order; without bytes that lie elsewhere
};

/// What one file system of a disc holds.
struct Listing {
    std::string volume;          ///< the disc's name
    std::vector<DiscFile> files; ///< only regular files, in the order of their first sectors
};

/// Reads whole sectors; false if they can't be read.
using ReadSectors = std::function<bool(std::uint32_t firstSector, std::span<std::byte> out)>;

/// Lists the files of a disc by the file system that an operating system would mount: UDF, else ISO
/// 9660 with its Rock Ridge or Joliet names. Nothing if neither is there or can be read.
/// @param session  first sector of the disc's last session
std::optional<Listing> ListFiles(const ReadSectors& read, std::uint32_t session);

} // namespace velmora::discfiles
