// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "discfiles/DiscFiles.h"
#include "terminal/check/CarefulReader.h"
#include "terminal/check/FileProofs.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velmora::terminal {

/// What is wrong with a file.
enum class FileFault : std::uint8_t { Different, Unreadable, Missing };

/// A file of a disc that isn't as it should be.
struct FaultyFile {
    std::string path; ///< native, on the disc
    FileFault fault = FileFault::Different;

    bool operator==(const FaultyFile&) const = default;
};

/// The result of checking a disc.
struct CheckFindings {
    std::uint64_t goodFiles = 0;
    std::uint64_t checkedBytes = 0;
    std::vector<FaultyFile> faultyFiles {}; ///< in the order of the disc, then the missing ones
    std::vector<SectorRange> unreadable {}; ///< in the order in which they were met
    std::vector<SectorRange> faultyStructure {}; ///< differs, and lies in no known file
    std::vector<std::string> undescribed {};     ///< files on the disc without a description
    bool isStopped = false;

    bool IsGood() const
    {
        return faultyFiles.empty() && unreadable.empty() && faultyStructure.empty();
    }
};

/// Told how many bytes are done, of how many.
using CheckProgress = std::function<void(std::uint64_t done, std::uint64_t total)>;

/// Reads the files of a disc, each once however many names it has, in the order of the disc.
/// @param own  path of a file that describes the others, and itself needs no description
CheckFindings CheckFiles(const discfiles::Listing& listing,
    FileProofs& proofs,
    CarefulReader& reader,
    const CheckProgress& progress,
    const std::string& own = {});

/// The bytes of a file of a disc; those that can't be read are zeros.
std::string ContentOf(const discfiles::DiscFile& file, CarefulReader& reader);

} // namespace velmora::terminal
