// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/DiscPath.h"
#include "text/Paths.h"

#include <QString>

#include <string>
#include <string_view>

namespace velmora::text {

// Inside the program a path's separators are backslashes. A Linux name may hold any byte except "/"
// and NUL, so the two slashes are swapped at the border, both ways, and a byte that isn't part of a
// well-formed UTF-8 sequence is escaped as the lone surrogate U+DC00 + byte (U+DC80..U+DCFF). So
// are the blanks at the end of a name (U+DC20): the program's rules trim paths, which would give
// the path of something else. So every native path can be restored from its program path byte for
// byte.

/// The program path of a native path. Takes any byte string: overlong forms, surrogates and numbers
/// past U+10FFFF aren't well formed, so their bytes are escaped one by one.
QString ToProgramPath(std::string_view nativePath);
ProgramPath ToProgramPath(const NativePath& path);

/// The program path of a path that the user typed, in the form of this machine.
ProgramPath FromTypedPath(const QString& typed);

/// The native path of a program path. A lone surrogate that isn't an escaped byte, which no native
/// path produces, becomes the three bytes that UTF-8's scheme gives its number.
std::string ToNativePath(const QString& programPath);
NativePath ToNativePath(const ProgramPath& path);

/// The path on a disc as the program writes it, of one whose names are separated by "/", as the
/// image writer has them.
DiscPath ToDiscPath(std::string_view imagePath);
/// The image writer's form of a path on a disc.
std::string ToImagePath(const DiscPath& path);

/// The path as Qt's classes of files take it. Undecodable bytes are lost on the way: Qt has none.
QString ToQtPath(const NativePath& path);
QString ToQtPath(const ProgramPath& path);
/// The program path of a path that one of Qt's classes gave.
ProgramPath FromQtPath(const QString& path);

/// The text of bytes that aren't a path, a command line for instance: no slashes are swapped, and
/// bytes that aren't UTF-8 are escaped as in a path.
QString ToText(std::string_view bytes);

/// The text with its two slashes swapped; doing it twice gives the text again.
QString ExchangeSlashes(QString text);

/// A text for display: trailing blanks are blanks again, any other lone surrogate reads as U+FFFD.
/// For paths on the disc, which are shown with backslashes.
QString ForTheEye(QString text);

/// A path of this machine for display: native separators, U+FFFD for what can't be read.
QString MachinePathForTheEye(const QString& programPath);
QString MachinePathForTheEye(const ProgramPath& path);

} // namespace velmora::text
