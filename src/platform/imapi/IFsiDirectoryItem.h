// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IStream.h"
#include "text/DiscPath.h"
#include "text/Paths.h"

#include <memory>

namespace velmora::imapi {

/// A directory of an image.
///
/// Paths in the image have backslashes between their names, but no leading or trailing ones. A
/// malformed path (an empty name, ".", "..", NUL, a name over 254 UTF-16 units) raises C0AAB110
/// everywhere; every addition to an image whose result was created raises C0AAB102.
class IFsiDirectoryItem {
public:
    IFsiDirectoryItem() = default;
    virtual ~IFsiDirectoryItem() = default;
    IFsiDirectoryItem(const IFsiDirectoryItem&) = delete;
    IFsiDirectoryItem& operator=(const IFsiDirectoryItem&) = delete;
    IFsiDirectoryItem(IFsiDirectoryItem&&) = delete;
    IFsiDirectoryItem& operator=(IFsiDirectoryItem&&) = delete;

    /// The directory at a path below this one.
    /// Errors: C0AAB118 when the image has no such item; 13 when the item is a file.
    virtual std::shared_ptr<IFsiDirectoryItem> Item(const text::DiscPath& path) = 0;

    /// Mirrors a directory of the machine below this one, by its own name or, without its base
    /// directory, only its contents. The machine's root has no name: its contents are taken. Where
    /// names collide, directories are merged, and a file of the source replaces the image's. What
    /// can be added is added; if anything could not be, one EntriesLeftOut is raised at the end,
    /// whose description names the first entries left out and tells their number.
    ///
    /// Errors: 80070002 (no such source), C0AAB12B (it can't be listed), C0AAB109 (it is a file),
    /// C0AAB11A (this directory is gone), C0AAB131 and C0AAB132 under strict compliance; otherwise
    /// the number of the first entry left out.
    virtual void AddTree(const text::ProgramPath& sourceDirectory, bool includeBaseDirectory) = 0;

    /// Makes a directory that exists only on the disc.
    /// @param path  from the image's root; the parent must exist
    /// Errors: C0AAB112 (the name exists), C0AAB11A (no parent), C0AAB109 (the parent is a file),
    /// C0AAB131.
    virtual void AddDirectory(const text::DiscPath& path) = 0;

    /// Adds a file to the image. Its bytes are read when the result's stream is.
    /// @param path      from the image's root; the parent must exist
    /// @param fileData  a stream that was opened on a file for reading
    /// Errors: as AddDirectory; E_POINTER (-2147467261) for an empty stream, C0AAB12A (the file
    /// can't be opened any more), C0AAB132, C0AAB101 for a stream that isn't a file's.
    virtual void AddFile(const text::DiscPath& path, const StreamRef& fileData) = 0;
};

using DirectoryItemRef = std::shared_ptr<IFsiDirectoryItem>;

} // namespace velmora::imapi
