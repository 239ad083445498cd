// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/MessageDoor.h"

#include <QString>

namespace velmora::wizard {

/// What the start sets up on the window.
class StartScreen : public shell::MessageDoor {
public:
    virtual void SetCaption(const QString& caption) = 0;
    /// The folder to burn.
    virtual QString lblDossier() const = 0;
    virtual void SetlblDossier(const QString& caption) = 0;
    /// The recorder chosen.
    virtual void SetlblGraveur(const QString& caption) = 0;

    // The list of recorders.
    virtual void ClearCombo1() = 0;
    virtual void AddToCombo1(const QString& item) = 0;
    virtual qint16 Combo1ListCount() const = 0;
    virtual QString Combo1List(qint16 index) const = 0;
    /// The place of the item selected, -1 = none.
    virtual qint16 Combo1ListIndex() const = 0;
    /// Selects an item, which runs the click when it wasn't selected.
    virtual void SetCombo1ListIndex(qint16 index) = 0;

    /// Shows a program path as the temporary directory.
    virtual void SetRepTempTxt(const QString& path) = 0;
    /// Makes the list of the icons of files, in small size.
    virtual void CreateSysImageList() = 0;
    /// Gives the list of the compilation its icons and columns.
    virtual void SetUpListFile() = 0;
    virtual void SetDiscName(const QString& name) = 0;
};

} // namespace velmora::wizard
