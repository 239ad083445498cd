// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::desktop {
class FileChooser;
}

namespace velmora::dialogs {

/// The dialog for folders. An object is cleared, set, shown and read.
class CmnDialogEx {
public:
    /// The generation of the desktop's dialogs; 0 stands for a desktop that has none.
    static constexpr qint32 kModern = 10;

    /// @param chooser  must outlive the object
    explicit CmnDialogEx(desktop::FileChooser& chooser, qint32 version = kModern);

    /// Puts everything back to its start but the version. Does nothing while the dialog is open.
    void Clear();

    qint32 Version() const { return version_; }

    /// Asks for a folder, and puts its program path into FileName. Giving up leaves FileName empty,
    /// or raises error 0x800704C7 where CancelError says so. Error 65535 without dialogs.
    /// @return whether a folder was chosen
    bool ShowBrowseForFolder();

    /// Where the dialog begins: a program path, one of this machine or one with a drive letter.
    /// Anything else is refused: it reads as empty then, and the dialog begins where it likes.
    /// Not changed while the dialog is open.
    const QString& InitDir() const { return initDir_; }
    void SetInitDir(const QString& folder);

    /// Flags of the dialogs for files; those that the generation doesn't know are dropped.
    qint32 FlagsDialog() const { return flagsDialog_; }
    void SetFlagsDialog(qint32 flags);

    bool CancelError = false;
    qint32 FlagsFolderBrowsing = 0; ///< 0x200: folders can't be made in the dialog
    QString DialogTitle;
    QString FileName;

private:
    desktop::FileChooser& chooser_;
    qint32 version_;
    bool isOpen_ = false;
    QString initDir_;
    qint32 flagsDialog_ = 0;
};

} // namespace velmora::dialogs
