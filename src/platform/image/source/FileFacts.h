// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"

#include <string>
#include <sys/stat.h>
#include <sys/types.h>

namespace velmora::image {

/// How an entry of a folder was reached.
enum class Reached : bool { Directly, ThroughLink };

/// What a tree keeps of a file's or directory's status.
NodeFacts FactsOf(const struct stat& status, Reached reached);

/// Looks at one entry of an open directory (AT_FDCWD for a path of its own), following a symbolic
/// link. Errors (their path is empty): NotFound, DanglingLink, FileNotOpened (no right to it),
/// SpecialFile.
Result<NodeFacts> Examine(int directory, const char* name, Reached reached);

/// Opens a path of any length, longer ones than the kernel takes in one call too.
/// @return a descriptor, or -1 with errno
int OpenPath(const std::string& path, int flags);

} // namespace velmora::image
