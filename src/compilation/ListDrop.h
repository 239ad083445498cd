// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/DiscPath.h"
#include "text/Paths.h"

#include <QtGlobal>

namespace velmora::shell {
class MessageDoor;
}

namespace velmora::compilation {

class Compilation;
class CompilationList;
class DataObject;
class RowView;
class SourceFiles;
struct SourceEntry;

/// Files that are dragged over ListFile and dropped on it: the only way into a directory of the
/// disc.
class ListDrop {
public:
    ListDrop(Compilation& compilation,
        const CompilationList& list,
        SourceFiles& files,
        shell::MessageDoor& messages);

    /// A drag enters the list, moves over it, or leaves it (at a point outside). Marks the row
    /// under it and remembers the directory there.
    /// @param effect  the actions allowed: 1 copy, 2 move; becomes what a drop would do
    void OLEDragOver(const DataObject& data, qint32& effect, int x, int y, RowView& view);

    /// A drag was dropped.
    /// @param directory  DropDirectory at the time of the drop: other drags may have come since
    void OLEDragDrop(const DataObject& data, const text::DiscPath& directory, RowView& view);

    /// Adds what was dropped, shortcuts as their targets, below a directory. An entry that is there
    /// already makes no row: it counts nothing, and overwrites the sub-items of the row that this
    /// drop added before it. Missing and hidden files are skipped.
    /// @return false if a failure, reported to the user, ended it; rows added until then stay
    bool AddDroppedFiles(const DataObject& data, const text::DiscPath& directory);

    /// The directory of the disc under the drag; empty for the disc's root.
    const text::DiscPath& DropDirectory() const { return dropDirectory_; }

private:
    void AddAll(const DataObject& data, const text::DiscPath& directory);
    text::ProgramPath FileOf(const DataObject& data, qsizetype index);
    text::ProgramPath BehindShortcut(const text::ProgramPath& path);
    void Add(const text::ProgramPath& path, const text::DiscPath& directory, class ListRow*& row);

    Compilation& compilation_;
    const CompilationList& list_;
    SourceFiles& files_;
    shell::MessageDoor& messages_;
    text::DiscPath dropDirectory_;
};

} // namespace velmora::compilation
