// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/ByteOrder.h"
#include "image/base/Calendar.h"

#include <string>
#include <string_view>

// The building blocks of all UDF structures. "BP" is the position of a field's first byte, counted
// from 0 as in ECMA-167 (3rd edition); clauses are those of ECMA-167 part/clause, or of OSTA UDF
// where that narrows them.

namespace velmora::image {

/// Descriptor tag identifiers (3/7.2.1, 4/7.2.1).
enum class TagId : std::uint16_t {
    PrimaryVolume = 1,
    AnchorVolume = 2,
    ImplementationUseVolume = 4,
    Partition = 5,
    LogicalVolume = 6,
    UnallocatedSpace = 7,
    Terminating = 8,
    LogicalVolumeIntegrity = 9,
    FileSet = 256,
    FileIdentifier = 257,
    FileEntry = 261,
    ExtendedFileEntry = 266,
};

/// Descriptor tag (3/7.2, 4/7.2).
struct Tag {
    Little16 identifier;       // BP 0
    Little16 version = 2;      // BP 2      2 below UDF 2.00, else 3
    std::uint8_t checksum = 0; // BP 4      sum of the other 15 bytes
    std::uint8_t reserved = 0; // BP 5
    Little16 serialNumber = 1; // BP 6      the same in all descriptors (UDF 2.1.1.2)
    Little16 crc;              // BP 8
    Little16 crcLength;        // BP 10
    Little32 location;         // BP 12     sector, or block of the partition for part 4
};
static_assert(sizeof(Tag) == 16);

/// Completes the tag at the start of a descriptor: CRC over all that follows the tag, and checksum.
void Seal(std::string& descriptor, TagId identifier, std::uint16_t version, std::uint32_t location);

/// Which characters a text is made of (1/7.2.1): always OSTA Compressed Unicode (UDF 2.1.2).
struct CharacterSet {
    std::uint8_t type = 0;                                                          // BP 0
    std::array<char, 63> information = Filled<63>("OSTA Compressed Unicode", '\0'); // BP 1
};
static_assert(sizeof(CharacterSet) == 64);

/// Entity identifier (1/7.4, UDF 2.1.5).
struct EntityId {
    std::uint8_t flags = 0;                // BP 0
    std::array<char, 23> identifier {};    // BP 1
    std::array<std::uint8_t, 8> suffix {}; // BP 24
};
static_assert(sizeof(EntityId) == 32);

EntityId DomainId(std::uint16_t revision); ///< "*OSTA UDF Compliant", read-only (UDF 2.1.5.3)
EntityId UdfId(
    std::string_view identifier, std::uint16_t revision); ///< an identifier that UDF defines
EntityId ImplementationId();                              ///< this program on Linux (UDF 2.1.5.3)
EntityId ContentsId(std::uint16_t revision);              ///< "+NSR02" or "+NSR03" (3/10.5.3)

/// Moment (1/7.3), in UTC.
struct UdfTime {
    Little16 typeAndZone = 0x1000; // BP 0      1 << 12: local time, with an offset of 0 minutes
    Little16 year;                 // BP 2
    std::uint8_t month = 0;        // BP 4
    std::uint8_t day = 0;          // BP 5
    std::uint8_t hour = 0;         // BP 6
    std::uint8_t minute = 0;       // BP 7
    std::uint8_t second = 0;       // BP 8
    std::uint8_t centiseconds = 0; // BP 9
    std::uint8_t hundredsOfMicroseconds = 0; // BP 10
    std::uint8_t microseconds = 0;           // BP 11
};
static_assert(sizeof(UdfTime) == 12);

/// Years outside 1..9999 become the nearest moment that can be recorded.
UdfTime ToUdfTime(TimeStamp time);

/// Extent of the volume (3/7.1).
struct ExtentDescriptor {
    Little32 length;   // BP 0      bytes
    Little32 location; // BP 4      sector
};

/// Extent of the same partition (4/14.14.1).
struct ShortAllocation {
    Little32 length; // BP 0      bytes; the top two bits 0: recorded
    Little32 block;  // BP 4      of the partition
};

/// Extent of any partition (4/14.14.2).
struct LongAllocation {
    Little32 length;    // BP 0      bytes; the top two bits 0: recorded
    Little32 block;     // BP 4
    Little16 partition; // BP 8      number of the partition map
    Little16 flags;     // BP 10
    Little32 uniqueId;  // BP 12     of a file identifier's ICB, from UDF 2.00 on (UDF 2.3.4.3)
};
static_assert(
    sizeof(ExtentDescriptor) == 8 && sizeof(ShortAllocation) == 8 && sizeof(LongAllocation) == 16);

/// Longest extent of whole blocks (UDF 2.3.10).
inline constexpr std::uint64_t kMaxUdfExtent = 0x3FFFF800;

} // namespace velmora::image
