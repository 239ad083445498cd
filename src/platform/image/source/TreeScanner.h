// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmora::image {

/// What a scan found below one folder.
struct ScanReport {
    std::uint64_t files = 0;
    std::uint64_t directories = 0; ///< the folder itself not counted
    std::uint64_t links = 0;       ///< symbolic links, kept as such
    std::uint64_t bytes = 0;       ///< sizes of all files, hard links counted each time
    std::vector<Error> leftOut {}; ///< entries that were skipped, sorted by path

    /// Adds what was found below another folder; the omitted entries lose their order.
    void Add(const ScanReport& other);
};

struct ScanProgress {
    std::uint64_t entries = 0;  ///< files, directories and links found so far
    std::string currentPath {}; ///< a folder being read
};

struct ScanOptions {
    unsigned threads = 0; ///< 0 = as many as the machine has processors, four at most
    /// Called about 25 times a second by the calling thread; false stops the scan.
    std::function<bool(const ScanProgress&)> progress {};
    /// Why a folder below the scanned one is skipped, if it is; empty = none is. Asked by one
    /// thread at a time.
    std::function<std::optional<ErrorKind>(const NodeFacts&)> refusalOfFolder {};
};

enum class IncludeBase : bool { No, Yes };

/// Puts a folder's tree into the image below the directory `target`: the folder itself by its name
/// (IncludeBase::Yes) or only what is in it. The folder may be named by a symbolic link; those
/// below it are taken as links, wherever they lead. Hidden entries are included. What can't be
/// included is skipped and listed in the report. Only directories are opened.
///
/// Errors: NotFound, DirectoryUnreadable (of the folder itself), NotADirectory, Cancelled. After an
/// error the tree is as it was.
Result<ScanReport> ScanFolder(SourceTree& tree,
    NodeId target,
    const std::string& folder,
    IncludeBase includeBase,
    const ScanOptions& options = {});

} // namespace velmora::image
