// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace velmora::image {

inline constexpr std::uint64_t kSectorSize = 2048; ///< bytes (ECMA-119 6.1.2)

/// The number of sectors that hold some bytes.
inline std::uint64_t SectorsFor(std::uint64_t bytes)
{
    return (bytes + kSectorSize - 1) / kSectorSize;
}

} // namespace velmora::image
