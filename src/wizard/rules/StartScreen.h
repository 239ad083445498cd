// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/MessageDoor.h"
#include "text/Paths.h"

#include <QString>

namespace velmora::wizard {

/// What the start sets up on the window.
class StartScreen : public shell::MessageDoor {
public:
    virtual void SetCaption(const QString& caption) = 0;
    /// The text about the folder to burn (lblDossier).
    virtual QString FolderText() const = 0;
    virtual void ShowFolder(const QString& caption) = 0;
    /// The recorder chosen (lblGraveur).
    virtual void ShowRecorder(const QString& caption) = 0;

    // The list of recorders (Combo1).
    virtual void ClearRecorders() = 0;
    virtual void OfferRecorder(const QString& item) = 0;
    virtual qint16 RecorderCount() const = 0;
    virtual QString RecorderName(qint16 index) const = 0;
    /// The place of the selected recorder, -1 = none.
    virtual qint16 SelectedRecorder() const = 0;
    /// Selects a recorder, which runs the click when it wasn't selected.
    virtual void SelectRecorder(qint16 index) = 0;

    /// Shows the temporary directory (RepTempTxt).
    virtual void ShowTemporaryDirectory(const text::ProgramPath& path) = 0;
    /// Makes the list of the icons of files, in small size (SysImageList).
    virtual void CreateIcons() = 0;
    /// Gives the list of the compilation its icons and columns (ListFile).
    virtual void SetUpList() = 0;
    virtual void SetDiscName(const QString& name) = 0;
};

} // namespace velmora::wizard
