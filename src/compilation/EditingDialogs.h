// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/DiscPath.h"
#include "text/Paths.h"

#include <QString>

namespace velmora::compilation {

/// Settings of the dialog that asks for the files to add; the names are CommonDialog1's.
struct AddFilesDialog {
    QString DialogTitle;
    QString Filter; ///< what is shown, a vertical bar, the pattern
    qint32 Flags = 0;
    text::ProgramPath InitDir;
    QString FileName;
};

/// The door to the windows that editing the list opens.
class EditingDialogs {
public:
    EditingDialogs() = default;
    EditingDialogs(const EditingDialogs&) = delete;
    EditingDialogs& operator=(const EditingDialogs&) = delete;
    virtual ~EditingDialogs() = default;

    /// Shows CommonDialog1 as a dialog that opens files.
    /// @return one program path, or a folder's and then names in it, with a NUL before each name;
    /// empty when the user cancelled. Error 32755 instead while CancelError is True.
    virtual QString ShowOpen(const AddFilesDialog& dialog) = 0;

    /// Shows the chooser for a folder of this machine that is there already.
    /// @return empty when the user cancelled
    virtual text::ProgramPath BrowseForFolder(const QString& title) = 0;

    /// Asks for a directory to make on the disc (FrmMakeDir).
    /// @return NewDirectoryPath as the form leaves it
    virtual text::DiscPath AskNewDirectory() = 0;

    /// Starts the desktop's file manager on the user's home, without waiting for it.
    /// Error 53 when there is none.
    virtual void StartExplorer() = 0;
};

} // namespace velmora::compilation
