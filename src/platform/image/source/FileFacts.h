// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"

#include <string>
#include <sys/stat.h>
#include <sys/types.h>

namespace velmora::image {

/// What a tree keeps of an entry's status.
NodeFacts FactsOf(const struct stat& status);

/// The moment of the last change of content or status, as NodeFacts has it.
std::uint64_t StatusChangeOf(const struct stat& status);

/// An entry of a folder.
struct Found {
    NodeFacts facts {};
    std::string linkText {}; ///< of a symbolic link
};

/// Examines one entry of an open directory (AT_FDCWD for a path of its own); a symbolic link isn't
/// followed. Errors (their path is empty): NotFound, FileNotOpened (no right to it), FileUnreadable
/// (the text of a link), SpecialFile, SizeUnknown.
Result<Found> LookAt(int directory, const char* name);

/// Examines the file or folder that a path leads to, through any number of links. Errors (their
/// path is empty): NotFound, DanglingLink, FileNotOpened (no right to it), SpecialFile,
/// SizeUnknown.
Result<NodeFacts> LookBehind(const char* path);

/// Opens an entry of an open directory (AT_FDCWD for a path of its own) to read it. Its access time
/// is kept where the system allows it: for the owner and for root.
/// @return a descriptor, or -1 with errno
int OpenUnnoticed(int directory, const char* name, int flags);

/// Opens a path of any length, even longer than the kernel takes in one call; its access time is
/// kept where the system allows it.
/// @return a descriptor, or -1 with errno
int OpenPath(const std::string& path, int flags);

} // namespace velmora::image
