// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/names/NamedTree.h"

#include <cstdint>
#include <stop_token>
#include <string>
#include <vector>

namespace velmora::image {

/// Why some readers lose an entry though a file system holds its name.
enum class HazardKind : std::uint8_t {
    CaseTwin, ///< differs from another only in the case of letters: Windows opens one of the two
    DotsOnly, ///< a name of only dots, which Windows treats as empty
    LongName, ///< a name of more than 253 bytes, which Linux cuts in Rock Ridge
    LongPath, ///< a path of more than 1023 bytes, the most that UDF allows (UDF, clause 2)
};

/// An entry that some readers lose.
struct HazardousName {
    HazardKind kind;
    std::string path; ///< native, in the image, as the source has it

    auto operator<=>(const HazardousName&) const = default;
};

/// Who loses the entry and why, one French sentence in UTF-8.
std::string Describe(HazardKind kind);

/// Adds the names of one tree that Windows loses, in Joliet or UDF.
/// @param stop  asks to give up
void AddHazardsOfWindows(const SourceTree& source,
    const NamedTree& named,
    const NameRules& rules,
    const std::stop_token& stop,
    std::vector<HazardousName>& hazards);
/// Adds the names that are too long for Rock Ridge as Linux reads it.
void AddLongNames(
    const SourceTree& source, const NamedTree& named, std::vector<HazardousName>& hazards);
/// Adds the entries whose path is too long for UDF.
void AddLongPaths(
    const SourceTree& source, const NamedTree& named, std::vector<HazardousName>& hazards);

} // namespace velmora::image
