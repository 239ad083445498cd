// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace velmora::terminal {

enum class MediumKind : std::uint8_t { Cd, Dvd, DvdDualLayer, BluRay, BluRayDualLayer };

/// A kind of disc that an image is made for, or that is burned.
struct Medium {
    MediumKind kind;
    std::string_view option; ///< as it is typed
    std::string_view name;   ///< as it is displayed
    std::uint32_t sectors;   ///< of 2048 bytes, on a blank disc of its kind
    /// Sectors that a rewritable one keeps when it is formatted, if fewer; 0 = as many.
    std::uint32_t formattedSectors;
    bool isRare;                    ///< hard to get, and not advised
    image::FileSystems fileSystems; ///< what its readers expect
    image::UdfRevision udfRevision;
};

inline bool IsBluRay(const Medium& medium)
{
    return medium.kind == MediumKind::BluRay || medium.kind == MediumKind::BluRayDualLayer;
}

/// All kinds, the smaller before the larger.
std::span<const Medium> Media();

/// The smallest kind that is easy to get and holds this many sectors, or nullptr.
const Medium* SmallestMedium(std::uint64_t sectors);

} // namespace velmora::terminal
