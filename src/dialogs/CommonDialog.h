// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QString>

namespace velmora::desktop {
class FileChooser;
struct FileFilter;
} // namespace velmora::desktop

namespace velmora::dialogs {

/// The main window's single file dialog. Its properties persist between uses.
class CommonDialog {
public:
    /// @param chooser  must outlive the dialog
    explicit CommonDialog(desktop::FileChooser& chooser);

    /// Shows the open dialog and puts the answer into FileName. Giving up leaves FileName empty, or
    /// raises error 32755 where CancelError says so.
    void ShowOpen();

    bool CancelError = false;
    bool Saves = false;     ///< the dialog offers to save, but is still the open dialog
    qint32 Flags = 0;       ///< 0x200: several files may be chosen
    QString Filter;         ///< kinds of file, as "Images Iso (*.iso)|*.iso"
    qint16 FilterIndex = 1; ///< the kind shown first, counted from 1
    QString DialogTitle;
    text::ProgramPath InitDir; ///< empty: the current directory
    /// Before: the name in the box. After: the program path of the file; of several files their
    /// folder and the names in it, parted by U+0000.
    QString FileName;

private:
    desktop::FileChooser& chooser_;
};

} // namespace velmora::dialogs
