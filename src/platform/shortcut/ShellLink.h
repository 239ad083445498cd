// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstddef>
#include <optional>
#include <span>

namespace velmora::shortcut {

// A shell link is a file of Windows that leads to another file. Its layout, all numbers with their
// low byte first, is published as [MS-SHLLINK]:
//
//     ShellLinkHeader                     76 bytes: size, class id, flags, facts of the target
//     [ LinkTargetIDList ]                a 16-bit length, and items that only Windows can read
//     [ LinkInfo ]                        a 32-bit length, itself included; the path on its drive
//     [ NAME_STRING ] [ RELATIVE_PATH ]   a 16-bit count of characters, and the characters
//     ...                                 what else there is isn't read
//
// The header's flags say which of the optional parts are there.

/// What a shell link says about its target. Paths are written as Windows writes them, with
/// backslashes.
struct ShellLink {
    QString localBasePath; ///< absolute, with the letter of a drive; empty for none
    QString relativePath;  ///< from the folder of the link; empty for none

    friend bool operator==(const ShellLink&, const ShellLink&) = default;
};

/// Reads a shell link.
/// @return none if the bytes aren't a link, or end too early
std::optional<ShellLink> ReadShellLink(std::span<const std::byte> bytes);

} // namespace velmora::shortcut
