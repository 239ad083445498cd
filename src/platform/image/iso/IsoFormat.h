// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/ByteOrder.h"
#include "image/base/Calendar.h"

// Records of ISO 9660. "BP" is the position of a field's first byte, counted from 1, as in ECMA-119
// (2nd edition).

namespace velmora::image {

inline constexpr std::uint32_t kSystemAreaSectors = 16; ///< left to the system, zeros (6.2.1)
/// Longest extent of a file that continues in another one: whole sectors (6.4.5, 9.1.4).
inline constexpr std::uint64_t kMaxInnerExtent = 0xFFFFF800;
/// Longest single extent, bytes.
inline constexpr std::uint64_t kMaxSingleExtent = 0xFFFFFFFF;

/// Date and time of a directory record (9.1.5).
struct RecordTime {
    std::uint8_t yearsSince1900 = 0;
    std::uint8_t month = 0; // 1..12
    std::uint8_t day = 0;   // 1..31
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
    std::uint8_t quarterHours = 0; // offset from Greenwich: always 0, times are UTC
};
static_assert(sizeof(RecordTime) == 7);

/// Years outside 1900..2155 become the nearest moment that can be recorded.
RecordTime ToRecordTime(std::int64_t secondsSince1970);

/// Date and time of a volume descriptor (8.4.26.1): 16 digits and the offset from Greenwich.
struct VolumeTime {
    std::array<char, 16> digits = Filled<16>("", '0'); // YYYYMMDDHHMMSScc; all '0' = not given
    std::uint8_t quarterHours = 0;
};
static_assert(sizeof(VolumeTime) == 17);

VolumeTime ToVolumeTime(TimeStamp time);

/// File flags (9.1.6).
enum IsoFileFlags : std::uint8_t {
    kFlagDirectory = 0x02,
    kFlagMultiExtent = 0x80, // not the last extent of its file
};

/// Fixed part of a directory record; the identifier follows (9.1).
struct DirectoryRecordHead {
    std::uint8_t recordLength = 0;            // BP 1      bytes of the whole record, even
    std::uint8_t extendedAttributeLength = 0; // BP 2      sectors
    Both32 extentStart;                       // BP 3      sector
    Both32 dataLength;                        // BP 11     bytes
    RecordTime time;                          // BP 19
    std::uint8_t flags = 0;                   // BP 26
    std::uint8_t fileUnitSize = 0;            // BP 27     not interleaved
    std::uint8_t interleaveGap = 0;           // BP 28
    Both16 volumeSequenceNumber = 1;          // BP 29
    std::uint8_t identifierLength = 0;        // BP 33     bytes
};
static_assert(sizeof(DirectoryRecordHead) == 33 && offsetof(DirectoryRecordHead, flags) == 25);

/// Directory record of the root, as in a volume descriptor (8.4.18).
struct RootRecord {
    DirectoryRecordHead head;
    std::uint8_t identifier = 0;
};
static_assert(sizeof(RootRecord) == 34);

/// Primary (8.4) or supplementary (8.5) volume descriptor.
struct VolumeDescriptor {
    std::uint8_t type = 1; // BP 1      1 primary, 2 supplementary
    std::array<char, 5> standardIdentifier = Filled<5>("CD001"); // BP 2
    std::uint8_t version = 1;                                    // BP 7
    std::uint8_t volumeFlags = 0;                                // BP 8      supplementary only
    std::array<char, 32> systemIdentifier {};                    // BP 9
    std::array<char, 32> volumeIdentifier {};                    // BP 41
    std::array<std::uint8_t, 8> unused1 {};                      // BP 73
    Both32 volumeSpaceSize;                                      // BP 81     sectors
    std::array<char, 32> escapeSequences {};                     // BP 89     supplementary only
    Both16 volumeSetSize = 1;                                    // BP 121
    Both16 volumeSequenceNumber = 1;                             // BP 125
    Both16 logicalBlockSize = 2048;                              // BP 129
    Both32 pathTableSize;                                        // BP 133    bytes
    Little32 pathTableL;         // BP 141    sector of the table with low bytes first
    Little32 optionalPathTableL; // BP 145    none
    Big32 pathTableM;            // BP 149    sector of the table with high bytes first
    Big32 optionalPathTableM;    // BP 153    none
    RootRecord root;             // BP 157
    std::array<char, 128> volumeSetIdentifier {};    // BP 191
    std::array<char, 128> publisherIdentifier {};    // BP 319
    std::array<char, 128> preparerIdentifier {};     // BP 447
    std::array<char, 128> applicationIdentifier {};  // BP 575
    std::array<char, 37> copyrightFile {};           // BP 703
    std::array<char, 37> abstractFile {};            // BP 740
    std::array<char, 37> bibliographicFile {};       // BP 777
    VolumeTime created;                              // BP 814
    VolumeTime modified;                             // BP 831
    VolumeTime expires;                              // BP 848    not given
    VolumeTime effective;                            // BP 865    not given
    std::uint8_t fileStructureVersion = 1;           // BP 882
    std::uint8_t reserved1 = 0;                      // BP 883
    std::array<std::uint8_t, 512> applicationUse {}; // BP 884
    std::array<std::uint8_t, 653> reserved2 {};      // BP 1396
};
static_assert(sizeof(VolumeDescriptor) == 2048 && offsetof(VolumeDescriptor, root) == 156);
static_assert(offsetof(VolumeDescriptor, fileStructureVersion) == 881);

/// Volume descriptor set terminator (8.3).
struct SetTerminator {
    std::uint8_t type = 255;                                     // BP 1
    std::array<char, 5> standardIdentifier = Filled<5>("CD001"); // BP 2
    std::uint8_t version = 1;                                    // BP 7
    std::array<std::uint8_t, 2041> reserved {};                  // BP 8
};
static_assert(sizeof(SetTerminator) == 2048);

/// Fixed part of a path table record; the identifier follows, padded with a zero byte to even
/// length (9.4). `Number` is Little for the L table and Big for the M table.
template <template <class> class Number> struct PathTableRecordHead {
    std::uint8_t identifierLength = 0;        // BP 1
    std::uint8_t extendedAttributeLength = 0; // BP 2
    Number<std::uint32_t> extentStart;        // BP 3
    Number<std::uint16_t> parent;             // BP 7      number of the parent, the root is 1
};
static_assert(sizeof(PathTableRecordHead<Little>) == 8);

} // namespace velmora::image
