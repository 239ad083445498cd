// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/udf/UdfFormat.h"

// Structures of UDF that describe files; UdfFormat.h explains the notation.

namespace velmora::image {

/// File types of an ICB (4/14.6.6, UDF 2.2.13).
enum class UdfFileType : std::uint8_t {
    Directory = 4,
    File = 5,
    SymbolicLink = 12,
    MetadataMain = 250,
    MetadataMirror = 251
};

/// ICB tag (4/14.6).
struct IcbTag {
    Little32 priorEntries;      // BP 0
    Little16 strategy = 4;      // BP 4
    Little16 strategyParameter; // BP 6
    Little16 maxEntries = 1;    // BP 8
    std::uint8_t reserved = 0;  // BP 10
    std::uint8_t fileType = 0;  // BP 11
    Little32 parentBlock;       // BP 12     not given
    Little16 parentPartition;   // BP 16
    Little16 flags;             // BP 18     bits 0-2: 0 short, 1 long allocation descriptors,
                                //           3 the data themselves in their place; 6-8: UdfModeFlags
};
static_assert(sizeof(IcbTag) == 20);

/// Permission bits (4/14.9.5): those of others; group and owner have theirs 5 and 10 bits higher.
enum UdfPermissions : std::uint32_t { kUdfExecute = 1, kUdfWrite = 2, kUdfRead = 4 };

/// Flags of an ICB that correspond to bits of a mode (4/14.6.8).
enum UdfModeFlags : std::uint16_t { kUdfSetUser = 0x40, kUdfSetGroup = 0x80, kUdfSticky = 0x100 };

/// The owner or group of an entry that names none (UDF 2.3.6.1).
inline constexpr std::uint32_t kNoUdfOwner = 0xFFFFFFFF;

/// First part of file entries of both kinds (4/14.9, 4/14.17).
struct EntryHead {
    Tag tag;
    IcbTag icb;                     // BP 16
    Little32 userId = kNoUdfOwner;  // BP 36
    Little32 groupId = kNoUdfOwner; // BP 40
    Little32 permissions;           // BP 44
    Little16 linkCount;             // BP 48
    std::uint8_t recordFormat = 0;  // BP 50
    std::uint8_t recordDisplay = 0; // BP 51
    Little32 recordLength;          // BP 52
    Little64 informationLength;     // BP 56     bytes
};
static_assert(sizeof(EntryHead) == 64);

/// Last part of file entries of both kinds; the allocation descriptors follow.
struct EntryTail {
    EntityId implementation;
    Little64 uniqueId;
    Little32 extendedAttributesLength;
    Little32 allocationsLength; // bytes
};
static_assert(sizeof(EntryTail) == 48);

/// File entry (4/14.9): below UDF 2.00.
struct FileEntry {
    static constexpr TagId kTag = TagId::FileEntry;
    EntryHead head;
    Little64 blocksRecorded;           // BP 64
    UdfTime accessed;                  // BP 72
    UdfTime modified;                  // BP 84
    UdfTime attributesChanged;         // BP 96
    Little32 checkpoint = 1;           // BP 108
    LongAllocation extendedAttributes; // BP 112
    EntryTail tail;                    // BP 128
};
static_assert(sizeof(FileEntry) == 176 && offsetof(FileEntry, tail) == 128);

/// Extended file entry (4/14.17): from UDF 2.00 on.
struct ExtendedFileEntry {
    static constexpr TagId kTag = TagId::ExtendedFileEntry;
    EntryHead head;
    Little64 objectSize;               // BP 64     bytes, all streams
    Little64 blocksRecorded;           // BP 72
    UdfTime accessed;                  // BP 80
    UdfTime modified;                  // BP 92
    UdfTime created;                   // BP 104
    UdfTime attributesChanged;         // BP 116
    Little32 checkpoint = 1;           // BP 128
    Little32 reserved;                 // BP 132
    LongAllocation extendedAttributes; // BP 136
    LongAllocation streamDirectory;    // BP 152
    EntryTail tail;                    // BP 168
};
static_assert(sizeof(ExtendedFileEntry) == 216 && offsetof(ExtendedFileEntry, tail) == 168);

/// File characteristics (4/14.4.3).
enum UdfCharacteristics : std::uint8_t { kUdfDirectory = 0x02, kUdfParent = 0x08 };

/// Fixed part of a file identifier descriptor; the name follows, then zeros up to a multiple of 4
/// (4/14.4).
struct FileIdentifierHead {
    Tag tag;
    Little16 version = 1;             // BP 16
    std::uint8_t characteristics = 0; // BP 18
    std::uint8_t nameLength = 0;      // BP 19     bytes
    LongAllocation icb;               // BP 20
    Little16 implementationUseLength; // BP 36
};
static_assert(sizeof(FileIdentifierHead) == 38);

/// What a component of a symbolic link's path means (4/14.16.1.1).
enum class PathComponentType : std::uint8_t { Root = 2, Parent = 3, Current = 4, Name = 5 };

/// Fixed part of a path component; the identifier of a name follows, as a file identifier has it
/// (4/14.16.1).
struct PathComponentHead {
    std::uint8_t type = 0;             // BP 0
    std::uint8_t identifierLength = 0; // BP 1      bytes
    Little16 fileVersion;              // BP 2      not used (UDF 2.3.7.1)
};
static_assert(sizeof(PathComponentHead) == 4);

} // namespace velmora::image
