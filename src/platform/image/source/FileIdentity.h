// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"

#include <sys/stat.h>

namespace velmora::image {

/// Whether the status of a file, open or found at its path, is still that of the scan. One check
/// after a read is as good as two around it: the time of the last change never goes back.
bool IsUntouched(const SourceTree& tree, NodeId file, const struct stat& now);

/// Whether only the file's inode number differs from the scan's, on a file system where it means
/// nothing: then it is the same file, and untouched.
/// @param folder  the one that holds the file, open
bool IsUntouchedButForItsNumber(
    const SourceTree& tree, NodeId file, const struct stat& now, int folder);

/// Whether a status is that of the file that was scanned, whatever became of its content.
bool IsSameFile(const SourceTree& tree, NodeId file, const struct stat& now);
inline bool IsSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_ino == b.st_ino && a.st_dev == b.st_dev;
}

} // namespace velmora::image
