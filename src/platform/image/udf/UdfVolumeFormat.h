// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/udf/UdfFormat.h"

// Descriptors of a UDF volume; UdfFormat.h explains the notation.

namespace velmora::image {

/// Volume structure descriptor of the recognition sequence (2/9.1).
struct RecognitionDescriptor {
    std::uint8_t type = 0;
    std::array<char, 5> identifier {}; // "BEA01", "NSR02" or "NSR03", "TEA01"
    std::uint8_t version = 1;
    std::array<std::uint8_t, 2041> data {};
};
static_assert(sizeof(RecognitionDescriptor) == 2048);

/// Anchor volume descriptor pointer (3/10.2).
struct AnchorDescriptor {
    Tag tag;
    ExtentDescriptor mainSequence;    // BP 16
    ExtentDescriptor reserveSequence; // BP 24
    std::array<std::uint8_t, 480> reserved {};
};
static_assert(sizeof(AnchorDescriptor) == 512);

/// Primary volume descriptor (3/10.1).
struct PrimaryVolumeDescriptor {
    Tag tag;
    Little32 sequenceNumber;                  // BP 16
    Little32 number;                          // BP 20
    std::array<char, 32> volumeIdentifier {}; // BP 24     d-string
    Little16 volumeSequenceNumber = 1;        // BP 56
    Little16 maxVolumeSequenceNumber = 1;     // BP 58
    Little16 interchangeLevel = 2;            // BP 60     UDF 2.2.2.1
    Little16 maxInterchangeLevel = 3;         // BP 62
    Little32 characterSetList = 1;            // BP 64     CS0
    Little32 maxCharacterSetList = 1;         // BP 68
    std::array<char, 128>
        volumeSetIdentifier {};       // BP 72     d-string, unique in its first 16 characters
    CharacterSet descriptorSet;       // BP 200
    CharacterSet explanatorySet;      // BP 264
    ExtentDescriptor volumeAbstract;  // BP 328
    ExtentDescriptor copyrightNotice; // BP 336
    EntityId application;             // BP 344
    UdfTime recorded;                 // BP 376
    EntityId implementation;          // BP 388
    std::array<std::uint8_t, 64> implementationUse {}; // BP 420
    Little32 predecessor;                              // BP 484
    Little16 flags;                                    // BP 488
    std::array<std::uint8_t, 22> reserved {};
};
static_assert(
    sizeof(PrimaryVolumeDescriptor) == 512 && offsetof(PrimaryVolumeDescriptor, recorded) == 376);

/// Implementation use volume descriptor "*UDF LV Info" (UDF 2.2.7).
struct VolumeInformation {
    Tag tag;
    Little32 sequenceNumber;                          // BP 16
    EntityId identifier;                              // BP 20
    CharacterSet characterSet;                        // BP 52
    std::array<char, 128> logicalVolumeIdentifier {}; // BP 116    d-string
    std::array<std::array<char, 36>, 3>
        lines {};            // BP 244    d-strings: owner, organisation, contact
    EntityId implementation; // BP 352
    std::array<std::uint8_t, 128> implementationUse {}; // BP 384
};
static_assert(
    sizeof(VolumeInformation) == 512 && offsetof(VolumeInformation, implementation) == 352);

/// Partition descriptor (3/10.5).
struct PartitionDescriptor {
    Tag tag;
    Little32 sequenceNumber;                           // BP 16
    Little16 flags = 1;                                // BP 20     allocated
    Little16 number;                                   // BP 22
    EntityId contents;                                 // BP 24
    std::array<std::uint8_t, 128> headerDescriptor {}; // BP 56     zeros: no free space of any kind
    Little32 accessType = 1;                           // BP 184    read-only
    Little32 start;                                    // BP 188    sector
    Little32 length;                                   // BP 192    sectors
    EntityId implementation;                           // BP 196
    std::array<std::uint8_t, 128> implementationUse {}; // BP 228
    std::array<std::uint8_t, 156> reserved {};
};
static_assert(
    sizeof(PartitionDescriptor) == 512 && offsetof(PartitionDescriptor, accessType) == 184);

/// Fixed part of the logical volume descriptor; the partition maps follow (3/10.6).
struct LogicalVolumeHead {
    Tag tag;
    Little32 sequenceNumber;             // BP 16
    CharacterSet characterSet;           // BP 20
    std::array<char, 128> identifier {}; // BP 84     d-string: the name that systems show
    Little32 blockSize = 2048;           // BP 212
    EntityId domain;                     // BP 216
    LongAllocation fileSet;              // BP 248
    Little32 mapTableLength;             // BP 264    bytes
    Little32 mapCount;                   // BP 268
    EntityId implementation;             // BP 272
    std::array<std::uint8_t, 128> implementationUse {}; // BP 304
    ExtentDescriptor integritySequence;                 // BP 432
};
static_assert(sizeof(LogicalVolumeHead) == 440 && offsetof(LogicalVolumeHead, fileSet) == 248);

/// Type 1 partition map (3/10.7.2).
struct PlainPartitionMap {
    std::uint8_t type = 1;
    std::uint8_t length = 6;
    Little16 volumeSequenceNumber = 1;
    Little16 partition;
};
static_assert(sizeof(PlainPartitionMap) == 6);

/// Metadata partition map (UDF 2.2.10).
struct MetadataPartitionMap {
    std::uint8_t type = 2;             // BP 0
    std::uint8_t length = 64;          // BP 1
    Little16 reserved1;                // BP 2
    EntityId identifier;               // BP 4
    Little16 volumeSequenceNumber = 1; // BP 36
    Little16 partition;                // BP 38
    Little32 mainFile;                 // BP 40     block of its file entry
    Little32 mirrorFile;               // BP 44
    Little32 bitmapFile = 0xFFFFFFFF;  // BP 48     none: nothing is ever allocated
    Little32 allocationUnit = 32;      // BP 52     blocks
    Little16 alignmentUnit = 32;       // BP 56     blocks
    std::uint8_t flags = 0;            // BP 58     0: both files share their blocks
    std::array<std::uint8_t, 5> reserved2 {};
};
static_assert(sizeof(MetadataPartitionMap) == 64);

/// Unallocated space descriptor without extents (3/10.8).
struct UnallocatedSpaceDescriptor {
    Tag tag;
    Little32 sequenceNumber; // BP 16
    Little32 extentCount;    // BP 20
};
static_assert(sizeof(UnallocatedSpaceDescriptor) == 24);

/// Terminating descriptor (3/10.9, 4/14.2).
struct TerminatingDescriptor {
    Tag tag;
    std::array<std::uint8_t, 496> reserved {};
};
static_assert(sizeof(TerminatingDescriptor) == 512);

/// Fixed part of the logical volume integrity descriptor; free space and size of each partition
/// follow, then the implementation use (3/10.10).
struct IntegrityHead {
    Tag tag;
    UdfTime recorded;      // BP 16
    Little32 type = 1;     // BP 28     closed
    ExtentDescriptor next; // BP 32
    Little64 nextUniqueId; // BP 40
    std::array<std::uint8_t, 24> reserved {};
    Little32 partitionCount;               // BP 72
    Little32 implementationUseLength = 46; // BP 76
};
static_assert(sizeof(IntegrityHead) == 80);

/// Implementation use of the integrity descriptor (UDF 2.2.6.4).
struct IntegrityUse {
    EntityId implementation;   // BP 0
    Little32 files;            // BP 32     names of files
    Little32 directories;      // BP 36     the root counted
    Little16 minReadRevision;  // BP 40
    Little16 minWriteRevision; // BP 42
    Little16 maxWriteRevision; // BP 44
};
static_assert(sizeof(IntegrityUse) == 46);

/// File set descriptor (4/14.1).
struct FileSetDescriptor {
    Tag tag;
    UdfTime recorded;                                 // BP 16
    Little16 interchangeLevel = 3;                    // BP 28
    Little16 maxInterchangeLevel = 3;                 // BP 30
    Little32 characterSetList = 1;                    // BP 32
    Little32 maxCharacterSetList = 1;                 // BP 36
    Little32 number;                                  // BP 40
    Little32 descriptorNumber;                        // BP 44
    CharacterSet logicalVolumeSet;                    // BP 48
    std::array<char, 128> logicalVolumeIdentifier {}; // BP 112    d-string
    CharacterSet fileSetSet;                          // BP 240
    std::array<char, 32> identifier {};               // BP 304    d-string
    std::array<char, 32> copyrightFile {};            // BP 336    d-string
    std::array<char, 32> abstractFile {};             // BP 368    d-string
    LongAllocation root;                              // BP 400
    EntityId domain;                                  // BP 416
    LongAllocation next;                              // BP 448
    LongAllocation systemStreams;                     // BP 464
    std::array<std::uint8_t, 32> reserved {};
};
static_assert(sizeof(FileSetDescriptor) == 512 && offsetof(FileSetDescriptor, root) == 400);

} // namespace velmora::image
