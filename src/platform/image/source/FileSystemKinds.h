// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

namespace velmora::image {

/// Whether a regular file shows no bytes but may hold some: nothing of it lies on a disk.
bool MayHideItsSize(const struct stat& status);

/// Whether a file lies in a file system that the kernel makes up (/proc and its like): its files
/// may show a size of 0 and still hold bytes.
/// @param directory  open; AT_FDCWD where the name is a path
bool TellsNoSizes(int directory, const char* name);

/// Whether inode numbers may change while nobody touches the files: FAT has none on the disk, and
/// some network and user-space file systems assign them when files are looked up.
/// @param place  a file or folder of it, open
bool HasFleetingInodes(int place);

} // namespace velmora::image
