// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QString>

namespace velmora::desktop {
class FileChooser;
}

namespace velmora::dialogs {

/// The dialog for folders. An object is cleared, set, shown and read.
class CmnDialogEx {
public:
    /// @param chooser  must outlive the object
    explicit CmnDialogEx(desktop::FileChooser& chooser);

    /// Resets everything. Does nothing while the dialog is open.
    void Clear();

    /// Asks for a folder, and puts its program path into FileName; giving up leaves it empty.
    /// @return whether a folder was chosen
    bool ShowBrowseForFolder();

    /// Where the dialog begins: a program path, one of this machine or one with a drive letter.
    /// Anything else is refused: it then reads as empty, and the dialog chooses where to begin. Not
    /// changed while the dialog is open.
    const text::ProgramPath& InitDir() const { return initDir_; }
    void SetInitDir(const QString& folder);

    qint32 FlagsFolderBrowsing = 0; ///< 0x200: folders can't be made in the dialog
    QString DialogTitle;
    QString FileName;

private:
    desktop::FileChooser& chooser_;
    bool isOpen_ = false;
    text::ProgramPath initDir_;
};

} // namespace velmora::dialogs
