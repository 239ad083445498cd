// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"

#include <sys/stat.h>

namespace velmora::image {

/// Whether the status of a file, open or found at its path, is still that of the scan. One look
/// after a read is as good as two around it: the time of the last change only moves on.
bool IsUntouched(const SourceTree& tree, NodeId file, const struct stat& now);

/// Whether only the file's number is another than at the scan, on a file system whose numbers tell
/// nothing: then it is the same file, and untouched.
/// @param folder  the one that the file lies in, open
bool IsUntouchedButForItsNumber(
    const SourceTree& tree, NodeId file, const struct stat& now, int folder);

/// Whether a status is that of the file that was scanned, whatever became of its content.
bool IsSameFile(const SourceTree& tree, NodeId file, const struct stat& now);
inline bool IsSameFile(const struct stat& a, const struct stat& b)
{
    return a.st_ino == b.st_ino && a.st_dev == b.st_dev;
}

} // namespace velmora::image
