// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/SourceEntry.h"

#include <QLocale>

namespace velmora::shell {
class MessageDoor;
class PointerDoor;
struct ProgramState;
} // namespace velmora::shell

namespace velmora::compilation {

class CapacityAccount;
class IconSource;
class SourceFiles;
struct FolderContents;

/// What the compilation depends on.
struct CompilationContext {
    SourceFiles& files;
    IconSource& icons;
    shell::MessageDoor& messages;
    shell::PointerDoor& pointer;
};

/// Adds to the list and removes from it, and keeps count.
class Compilation {
public:
    Compilation(shell::ProgramState& state,
        CompilationList& list,
        CapacityAccount& capacity,
        CompilationContext context,
        const QLocale& locale = QLocale::system());

    /// Adds a folder as one row that represents its whole tree. A whole drive or file system is
    /// asked about first; a No empties the path, and an empty path adds nothing. Errors: those of
    /// FolderSize, 35602 when the list holds the disc path, those of CalcSpaceOnMedia.
    void PutDir(text::ProgramPath& path);

    /// Adds a file as one row; an empty path adds nothing.
    /// Errors: those of SourceFiles::FileSize, 35602, those of CalcSpaceOnMedia.
    void PutFile(const text::ProgramPath& path);

    /// Adds a directory that exists only on the disc; it counts nothing.
    /// @param path  gets a backslash at its end if it has none
    /// Error 35602 when the list holds the disc path.
    void AddMadeDirectory(const text::DiscPath& path);

    /// Adds an entry, as a click or a drop with several of them does. An entry whose disc path is
    /// in the list makes no row: it counts nothing, and its sub-items go to `row`, if there is one.
    /// @param row  the row added before it, null for none; becomes the entry's
    /// Errors: those of CalcSpaceOnMedia.
    void AddOrOverwrite(const SourceEntry& entry, ListRow*& row);

    /// Removes a row, and its bytes, as read when it was added, from the sum; rows below it on the
    /// disc stay. Errors: 35600 outside the list, those of CalcSpaceOnMedia.
    void RemoveRow(qsizetype index);

    /// Fills the list anew with a row for each name in a folder, and notes the hidden ones; the
    /// path gets a backslash at its end. Tells the user about a folder without content and about
    /// any failure except a requested interruption; rows added until then stay.
    /// @return whether there is at least one byte to burn
    bool LoadFolder(text::ProgramPath& path);

    /// The entry for a folder's row. The disc path is `dropDirectory` followed by the folder's
    /// name.
    SourceEntry DescribeDirectory(
        const text::ProgramPath& origin, const text::DiscPath& dropDirectory = {});
    /// The entry for a file's row.
    SourceEntry DescribeFile(
        const text::ProgramPath& origin, const text::DiscPath& dropDirectory = {});

    /// What the user means by a path: for a symbolic link, its target; empty if that leads nowhere.
    text::ProgramPath BehindLink(const text::ProgramPath& path);

    /// What lies below a folder, counted under the hourglass. After a failure the hourglass stays.
    /// Errors: those of SourceFiles::ContentsOf.
    FolderContents FolderSize(const text::ProgramPath& path);

private:
    bool MayAdd(const text::ProgramPath& path);
    void AddCounted(const SourceEntry& entry);
    void ReadFolder(text::ProgramPath& path);

    shell::ProgramState& state_;
    CompilationList& list_;
    CapacityAccount& capacity_;
    CompilationContext context_;
    QLocale locale_;
};

} // namespace velmora::compilation
