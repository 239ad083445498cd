// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QByteArray>
#include <QStringList>

namespace velmora::compilation {

/// The classic number of an interruption by the user.
inline constexpr qint32 kInterrupted = 18;

/// What lies below a folder, hidden entries and those below other folders included.
struct FolderContents {
    double bytes = 0; ///< apparent sizes, each hard link counted; symbolic links count 0
    qint64 files = 0; ///< symbolic links included
    qint64 folders = 0;
};

/// The door to the files of the machine: what the compilation asks about its sources. Names,
/// IsDirectory and ContentsOf raise kInterrupted when the door's creator requests a stop.
class SourceFiles {
public:
    SourceFiles() = default;
    SourceFiles(const SourceFiles&) = delete;
    SourceFiles& operator=(const SourceFiles&) = delete;
    virtual ~SourceFiles() = default;

    /// Names in a folder, without "." and ".." and without hidden ones, sorted ignoring case. A
    /// folder that isn't there has none. Error 70 when the folder can't be listed.
    virtual QStringList Names(const text::ProgramPath& folder) = 0;

    /// The hidden names in a folder that Names leaves out, in the same order. Errors: as there.
    virtual QStringList HiddenNames(const text::ProgramPath& folder) = 0;

    /// Whether a path names a folder itself: a symbolic link isn't one, wherever it leads. Errors:
    /// 53 when nothing is there, 70 when it can't be examined.
    virtual bool IsDirectory(const text::ProgramPath& path) = 0;

    /// Whether a file system of the machine is mounted at the path, "\" included.
    virtual bool IsMountRoot(const text::ProgramPath& path) = 0;

    /// What lies below a folder. Sockets, pipes and devices don't count, nor does what lies in
    /// folders that can't be read. Error 76 when the folder isn't there.
    virtual FolderContents ContentsOf(const text::ProgramPath& folder) = 0;

    /// Bytes of a file. A symbolic link counts 0, as do special files.
    /// Errors: 53 when nothing is there or the path names a folder, 70 when it can't be examined.
    virtual double FileSize(const text::ProgramPath& file) = 0;

    /// The place that a path leads to when its last name is a symbolic link, through any number of
    /// links; empty when it leads nowhere. Any other path is returned unchanged.
    virtual text::ProgramPath BehindLink(const text::ProgramPath& path) = 0;

    /// Whether a path that doesn't end in a separator names something that isn't a folder and isn't
    /// hidden; symbolic links are followed. Error 70 when it can't be examined.
    virtual bool FindsFile(const text::ProgramPath& path) = 0;

    /// Whether a path names a folder that isn't hidden; symbolic links are followed. Error 70 when
    /// it can't be examined.
    virtual bool FindsFolder(const text::ProgramPath& path) = 0;

    /// The beginning of a file, `limit` bytes at most; empty for anything but a plain file.
    /// Errors: 53 when nothing is there, 70 when it can't be read.
    virtual QByteArray Beginning(const text::ProgramPath& file, qsizetype limit) = 0;
};

} // namespace velmora::compilation
