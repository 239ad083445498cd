// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/iso/IsoFormat.h"
#include "image/source/Attributes.h"

// System use fields that keep names, modes and times as Linux has them: SUSP 1.10 and RRIP 1.10,
// whose extension is recorded under the name that every reader knows, RRIP_1991A.

namespace velmora::image {

/// Head of every system use field (SUSP 1.10, clause 4).
struct SystemUseHead {
    std::array<char, 2> signature {}; // BP 1
    std::uint8_t length = 0;          // BP 3      bytes, this head counted
    std::uint8_t version = 1;         // BP 4
};
static_assert(sizeof(SystemUseHead) == 4);

/// SP: the system use fields begin here (SUSP 5.3). Only in the root's own record.
struct SharingIndicator {
    SystemUseHead head {{'S', 'P'}, 7};
    std::array<std::uint8_t, 2> check {0xBE, 0xEF}; // BP 5
    std::uint8_t skippedBytes = 0;                  // BP 7
};
static_assert(sizeof(SharingIndicator) == 7);

/// CE: the fields continue in a continuation area (SUSP 5.1).
struct Continuation {
    SystemUseHead head {{'C', 'E'}, 28};
    Both32 sector; // BP 5
    Both32 offset; // BP 13     in that sector
    Both32 length; // BP 21     bytes; they end in the same sector
};
static_assert(sizeof(Continuation) == 28);

/// ER: which extension is in use (SUSP 5.5), here with its three texts.
struct ExtensionReference {
    static constexpr std::string_view kIdentifier = "RRIP_1991A";
    static constexpr std::string_view kDescriptor = "Names, modes and times of POSIX";
    static constexpr std::string_view kSource = "IEEE P1282";

    SystemUseHead head {{'E', 'R'}, 8 + 10 + 31 + 10};
    std::uint8_t identifierLength = 10;                        // BP 5
    std::uint8_t descriptorLength = 31;                        // BP 6
    std::uint8_t sourceLength = 10;                            // BP 7
    std::uint8_t extensionVersion = 1;                         // BP 8
    std::array<char, 10> identifier = Filled<10>(kIdentifier); // BP 9
    std::array<char, 31> descriptor = Filled<31>(kDescriptor);
    std::array<char, 10> source = Filled<10>(kSource);
};
static_assert(sizeof(ExtensionReference) == 59 && ExtensionReference::kDescriptor.size() == 31);

/// PX: mode, links, owner (RRIP 4.1.1).
struct PosixAttributes {
    SystemUseHead head {{'P', 'X'}, 36};
    Both32 mode;    // BP 5      file type and permissions
    Both32 links;   // BP 13
    Both32 userId;  // BP 21
    Both32 groupId; // BP 29
};
static_assert(sizeof(PosixAttributes) == 36);

/// TF: the moment of the last change (RRIP 4.1.6, flag bit 1).
struct TimeStamps {
    SystemUseHead head {{'T', 'F'}, 12};
    std::uint8_t flags = 0x02; // BP 5      only "modify", in the 7-byte form
    RecordTime modified;       // BP 6
};
static_assert(sizeof(TimeStamps) == 12);

/// What every record has, directories' own ones included.
struct StatusFields {
    PosixAttributes posix;
    TimeStamps times;
};
static_assert(sizeof(StatusFields) == 48);

/// NM: head of a piece of the name (RRIP 4.1.4); its bytes follow.
struct AlternateNameHead {
    SystemUseHead head {{'N', 'M'}, 5};
    std::uint8_t flags = 0; // BP 5 1: the name continues in the next NM
};
static_assert(sizeof(AlternateNameHead) == 5);

/// SL: head of a piece of a symbolic link's text (RRIP 4.1.3); its components follow.
struct SymbolicLinkHead {
    SystemUseHead head {{'S', 'L'}, 5};
    std::uint8_t flags = 0; // BP 5 1: the text continues in the next SL
};
static_assert(sizeof(SymbolicLinkHead) == 5);

/// Flags of a component (RRIP 4.1.3.1).
enum LinkComponentFlags : std::uint8_t {
    kComponentContinues = 0x01, // in the next component, without a slash between
    kComponentCurrent = 0x02,   // "."
    kComponentParent = 0x04,    // ".."
    kComponentRoot = 0x08,      // the machine's root
};

/// Head of a component of a symbolic link's text; its characters follow, without slashes.
struct LinkComponentHead {
    std::uint8_t flags = 0;  // BP 1
    std::uint8_t length = 0; // BP 2      bytes of the characters; none for ".", ".." and the root
};
static_assert(sizeof(LinkComponentHead) == 2);

inline constexpr std::size_t kMaxNamePiece = 250; ///< bytes of a name that one NM field can hold

/// Appends the NM fields of a name.
void AppendAlternateName(std::string& fields, std::string_view name);

/// The SL fields of a symbolic link, ready to be recorded. Redundant slashes (several in a row, one
/// at the end) are not recorded.
std::string SymbolicLink(std::string_view text);

/// The PX field of an entry.
PosixAttributes PosixOf(NodeKind kind, const Attributes& attributes, std::uint32_t links);

} // namespace velmora::image
