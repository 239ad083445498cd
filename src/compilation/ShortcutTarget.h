// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <optional>

namespace velmora::compilation {

class SourceFiles;

/// The target of a shell link (".lnk"): the file or folder that its relative path leads to from the
/// link's folder, or else the one at its path on a drive that this machine knows.
/// @return empty for an empty path, a path without a file and a target that is gone
/// Error -2147467259 for a file that is no shell link, 70 for one that can't be read.
text::ProgramPath ResolveShortcut(SourceFiles& files, const text::ProgramPath& path);

/// The target of a link file of the desktop (".desktop").
/// @return empty when the target is gone; no value for a file that is no link, or
///         leads to what isn't on this machine
/// Error 70 for a file that can't be read.
std::optional<text::ProgramPath> ResolveDesktopLink(
    SourceFiles& files, const text::ProgramPath& path);

} // namespace velmora::compilation
