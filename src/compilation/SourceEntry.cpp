// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/SourceEntry.h"

#include "runtime/Formats.h"
#include "shell/SizeTexts.h"

namespace velmora::compilation {

ListRow& AddRow(CompilationList& list, const SourceEntry& entry)
{
    return list.Add(entry.discPath.Text(), entry.discPath, entry.imageKey);
}

void WriteSubItems(
    CompilationList& list, ListRow& row, const SourceEntry& entry, const QLocale& locale)
{
    list.SetSubItem(row, SubItem::Taille, shell::FormatSizeKo(entry.size, locale));
    list.SetKind(row, entry.kind);
    list.SetOrigin(row, entry.origin);
    CompilationList::SetContents(row, entry.contents);
    list.SetSubItem(row, SubItem::CheminIso, entry.discPath.Text());
    list.SetSubItem(row, SubItem::TailleEnOctets, runtime::FormatWhole(entry.size));
}

} // namespace velmora::compilation
