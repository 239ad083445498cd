// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/CompilationList.h"
#include "text/DiscPath.h"
#include "text/Paths.h"

#include <QLocale>
#include <QString>

namespace velmora::compilation {

/// What a source file or folder adds to the list.
struct SourceEntry {
    text::DiscPath discPath; ///< a directory's ends in a backslash
    EntryKind kind = EntryKind::File;
    text::ProgramPath origin; ///< the source
    double size = 0;          ///< bytes; of a directory those of the whole tree
    RowContents contents {};  ///< what it adds to the disc
    QString imageKey;
};

/// Adds the entry's row, its sub-items still empty. Error 35602 when its disc path is in the list.
ListRow& AddRow(CompilationList& list, const SourceEntry& entry);

/// Writes an entry's five sub-items into a row.
void WriteSubItems(
    CompilationList& list, ListRow& row, const SourceEntry& entry, const QLocale& locale);

} // namespace velmora::compilation
