// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

namespace velmora::image {

/// What went wrong while an image was collected, planned, read or written.
enum class ErrorKind : std::uint8_t {
    // an entry of the source
    NotFound,            ///< the file or folder is not there
    FileNotOpened,       ///< the file can't be opened
    FileUnreadable,      ///< the file can't be read
    FileChanged,         ///< the file is shorter than when its folder was scanned
    FileReplaced,        ///< another file, a link or something else has taken the file's place
    SizeUnknown,         ///< the file system doesn't say how many bytes the file holds
    DirectoryUnreadable, ///< the folder can't be listed
    DanglingLink,        ///< the symbolic link leads nowhere
    LinkCycle,    ///< the symbolic link leads to a folder that holds the source; it isn't followed
    LinkToSystem, ///< the symbolic link leads into /proc, /sys or /dev; it isn't followed
    FolderTaken,  ///< the folder is in the tree already; links don't bring it in again
    SpecialFile,  ///< a pipe, a socket or a device: never opened
    // a name or a place in the image
    InvalidPath,       ///< an empty component, ".", "..", NUL or a component that is too long
    NameTaken,         ///< the directory holds the name already
    NoUniqueName,      ///< no name is free in the directory
    ItemNotFound,      ///< no such item in the image
    DirectoryNotFound, ///< the parent directory is not in the image
    NotADirectory,     ///< the item is a file
    InvalidVolumeName, ///< empty, too long, or with control characters
    // what a file system or a medium can't hold
    TooDeep,            ///< more than eight levels under the strict rules (ECMA-119 6.8.2.1)
    PathTooLong,        ///< a path over 255 under the strict rules (ECMA-119 6.8.2.1)
    FileTooLarge,       ///< a file that needs more extents than the level or the format has
    TooManyDirectories, ///< a parent number over 65535 (ECMA-119 9.4.4)
    LinkNotHeld,        ///< a symbolic link to no file of the tree, in a file system without links
    LinkTooLong,        ///< a symbolic link whose text is too long
    ImageTooLarge,      ///< the image would pass the limit given, or 2^32 sectors
    NoFileSystem,       ///< no file system was chosen
    // the output
    OutputNotCreated, ///< the image file can't be created
    OutputNotWritten, ///< the image file can't be written
    DiskFull,         ///< the disk has no room for the image file
    Cancelled,        ///< stopped on request
};

/// A failure and what it concerns.
struct Error {
    ErrorKind kind;
    std::string path {};            ///< native path of the file, or path in the image; may be empty
    int systemError = 0;            ///< errno, 0 = none
    std::uint64_t missingBytes = 0; ///< for a full disk: the missing space; 0 = unknown
};

/// What failed and what to do, one French sentence in UTF-8, without the path.
std::string Describe(ErrorKind kind);

/// The sentence of Describe with the path, the system's reason and the missing space, in UTF-8;
/// bytes of the path that are not UTF-8 read as U+FFFD.
std::string Describe(const Error& error);

} // namespace velmora::image
