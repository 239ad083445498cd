// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QString>

namespace velmora::shell {
class MessageDoor;
}

namespace velmora::compilation {

class Compilation;
class CompilationList;
class EditingDialogs;

/// The buttons of the list page. Each function is the click of the button that it is named after.
class ListEditing {
public:
    ListEditing(Compilation& compilation,
        const CompilationList& list,
        EditingDialogs& dialogs,
        shell::MessageDoor& messages);

    /// "Ajouter un répertoire". A folder whose name is in the list already is refused silently.
    /// Errors: those of Compilation::PutDir except 35602.
    void CorvaneButton3();

    /// "Ajouter un fichier". Any failure ends it silently; rows added until then stay. A file whose
    /// name is in the list already makes no row: it counts nothing, and overwrites the sub-items of
    /// the row that this click added before it.
    void CorvaneButton4();

    /// "Supprimer un élément": removes a row, when the user agrees.
    /// @param selected  the row, counted from 1; 0 when none is selected, then nothing happens
    /// Errors: those of CapacityAccount::CalcSpaceOnMedia; the row then stays.
    void CorvaneButton5(qsizetype selected);

    /// "Créer un répertoire". A path that is in the list already is refused silently.
    void CorvaneButton7();

    /// "Ouvrir explorateur". Error 53 when there is no file manager.
    void CorvaneButton8();

private:
    void AddFiles(const QString& fileName);
    void AddFile(const text::ProgramPath& named, class ListRow*& row);
    void AddSeveral(const QStringList& names);

    Compilation& compilation_;
    const CompilationList& list_;
    EditingDialogs& dialogs_;
    shell::MessageDoor& messages_;
};

} // namespace velmora::compilation
