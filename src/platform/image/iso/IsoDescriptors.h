// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/iso/IsoFormat.h"

#include <string>

namespace velmora::image {

/// What the volume descriptor of one hierarchy says.
struct IsoVolumeFacts {
    std::string volumeName; ///< UTF-8
    TimeStamp created {};
    std::uint32_t sectors = 0;       ///< of the whole image
    std::uint32_t pathTableSize = 0; ///< bytes
    std::uint32_t pathTableL = 0;    ///< sector
    std::uint32_t pathTableM = 0;    ///< sector
    RootRecord root {};
};

/// Primary volume descriptor (ECMA-119 8.4).
VolumeDescriptor PrimaryDescriptor(const IsoVolumeFacts& facts);

/// Supplementary volume descriptor of the Joliet tree, UCS-2 level 3 (ECMA-119 8.5, Joliet
/// specification).
VolumeDescriptor JolietDescriptor(const IsoVolumeFacts& facts);

} // namespace velmora::image
