// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QList>
#include <QString>

namespace velmora::desktop {

/// One kind of file on offer: the label, and the pattern of its names, as "*.iso".
struct FileFilter {
    QString text;
    QString pattern;
};

/// What a file dialog asks.
struct FileQuestion {
    QString title = {};
    QList<FileFilter> filters = {};
    qint32 filterIndex = 1;        ///< the filter shown first, counted from 1
    text::ProgramPath folder = {}; ///< where the dialog begins; empty: the current directory
    QString fileName = {};         ///< the name shown in the box at first
    /// Several existing files may be chosen; else one file, existing or not. A new name without a
    /// full stop gets the filter's extension.
    bool several = false;
    bool saves = false; ///< the one file will be written, so its name always counts as new
};

/// What a folder dialog asks.
struct FolderQuestion {
    QString title = {};
    text::ProgramPath folder = {}; ///< where the dialog begins; empty: the current directory
    bool mayMakeFolders = true;
};

/// The door to the desktop's dialogs for files and folders. They are modal to the program and
/// change nothing by themselves.
class FileChooser {
public:
    FileChooser() = default;
    FileChooser(const FileChooser&) = delete;
    FileChooser& operator=(const FileChooser&) = delete;
    virtual ~FileChooser() = default;

    /// The files chosen, all in one folder; none when the user cancelled.
    virtual QList<text::ProgramPath> AskFiles(const FileQuestion& question) = 0;
    /// The folder chosen; empty when the user cancelled.
    virtual text::ProgramPath AskFolder(const FolderQuestion& question) = 0;
};

} // namespace velmora::desktop
