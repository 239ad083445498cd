// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/udf/UdfHierarchy.h"

#include <string>
#include <vector>

namespace velmora::image {

/// Bytes at a fixed sector.
struct FixedSectors {
    std::uint32_t sector = 0;
    std::string bytes {};
};

/// Sectors with a fixed place in all our UDF images.
inline constexpr std::uint32_t kMainSequenceSector = 32;
inline constexpr std::uint32_t kEarlyReserveSector
    = 48; ///< below UDF 2.50; else before the closing anchor
inline constexpr std::uint32_t kIntegritySector = 64;
inline constexpr std::uint32_t kAnchorSector = 256; ///< ECMA-167 3/8.4.2.1
inline constexpr std::uint32_t kSequenceSectors
    = 16; ///< least length of a descriptor sequence (3/8.4.2.2)
inline constexpr std::uint32_t kMetadataUnit
    = 32; ///< blocks; each extent of a metadata file is a multiple (UDF 2.2.10, 2.2.13)
/// Longest extent of a metadata file, bytes.
inline constexpr std::uint64_t kMaxMetadataExtent
    = kMaxUdfExtent / (kMetadataUnit * kSectorSize) * (kMetadataUnit * kSectorSize);

struct UdfVolumeFacts {
    std::string volumeName; ///< UTF-8
    TimeStamp created {};
    UdfPlaces places {};
};

/// A d-string: compressed Unicode, its length in the last byte (UDF 2.1.3). What is too long is
/// cut.
template <std::size_t N> std::array<char, N> DString(std::string_view utf8);

/// The three sectors that say that the volume is recorded as UDF (ECMA-167 2/9).
std::string RecognitionSequence(std::uint16_t revision);

/// Everything of the volume except the recognition sequence, file entries and directories: both
/// descriptor sequences, integrity, anchors, file set and the entries of the metadata file.
std::vector<FixedSectors> VolumeStructures(
    const UdfVolumeFacts& facts, const UdfHierarchy& hierarchy);

} // namespace velmora::image
