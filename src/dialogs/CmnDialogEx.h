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

    /// Asks for a folder, and puts it into FileName; giving up leaves it empty.
    /// @return whether a folder was chosen
    bool ShowBrowseForFolder();

    /// Where the dialog begins.
    const text::ProgramPath& InitDir() const { return initDir_; }
    /// @param written  a folder as settings have it: a program path, one of this machine or one
    ///                 with a drive letter. Anything else is refused: InitDir is empty then, and
    ///                 the dialog chooses where to begin.
    /// Does nothing while the dialog is open.
    void SetInitDir(const QString& written);

    qint32 FlagsFolderBrowsing = 0; ///< 0x200: folders can't be made in the dialog
    QString DialogTitle;
    text::ProgramPath FileName;

private:
    desktop::FileChooser& chooser_;
    bool isOpen_ = false;
    text::ProgramPath initDir_;
};

} // namespace velmora::dialogs
