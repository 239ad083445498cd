// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QString>

#include <string>
#include <string_view>

namespace velmora::text {

// Inside the program a path's separators are backslashes. A Linux name may hold any byte but "/"
// and NUL, so the two slashes are exchanged at the border, both ways, and a byte that is part of no
// well-formed UTF-8 sequence travels as the lone surrogate U+DC00 + byte (U+DC80..U+DCFF). So do
// the blanks at the end of a name (U+DC20): the rules of the program trim paths, and would make of
// them the path of something else. Thus every native path comes back from its program path byte for
// byte.

/// The program path of a native path. Takes every byte string: overlong forms, surrogates and
/// numbers past U+10FFFF aren't well formed, so their bytes travel one by one.
QString ToProgramPath(std::string_view nativePath);
ProgramPath ToProgramPath(const NativePath& path);

/// The program path of a path that a person typed, in the form of this machine.
QString FromTypedPath(const QString& typed);

/// The native path of a program path. A surrogate that stands alone and isn't a travelling byte,
/// which no native path gives, becomes the three bytes that its number has in UTF-8's scheme.
std::string ToNativePath(const QString& programPath);
NativePath ToNativePath(const ProgramPath& path);

/// The text that bytes are which name no path, a command line for instance: nothing of it is
/// exchanged, and what isn't UTF-8 travels as in a path.
QString ToText(std::string_view bytes);

/// The text with its two slashes exchanged; doing it twice gives the text again.
QString ExchangeSlashes(QString text);

/// A text for the eye: last blanks are blanks again, any other lone surrogate reads as U+FFFD. For
/// paths on the disc, which read with backslashes.
QString ForTheEye(QString text);

/// A path of this machine as a person reads it: native separators, U+FFFD for what can't be read.
QString MachinePathForTheEye(const QString& programPath);
QString MachinePathForTheEye(const ProgramPath& path);

} // namespace velmora::text
