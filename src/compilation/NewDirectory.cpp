// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "compilation/NewDirectory.h"

#include "compilation/CompilationList.h"
#include "shell/PathHelpers.h"

namespace velmora::compilation {

using namespace Qt::StringLiterals;

NewDirectory::NewDirectory(const CompilationList& list)
    : combo1_ {u"Racine du disque à graver"_s}
{
    for (qsizetype i = 1; i <= list.Count(); ++i) {
        if (list[i].Path().IsDirectory()) {
            combo1_ += list[i].Text();
        }
    }
}

bool NewDirectory::Command2(qsizetype Combo1ListIndex, const QString& Text1)
{
    if (Text1.isEmpty()) {
        return false;
    }
    QString path = (Combo1ListIndex > 0 ? combo1_[Combo1ListIndex] : QString()) + Text1;
    NewDirectoryPath_ = text::DiscPath(shell::AddBackslash(path));
    return true;
}

} // namespace velmora::compilation
