// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace velmora::desktop {

/// One kind of file on offer: the label, and the pattern of its names, as "*.iso".
struct FileFilter {
    QString text;
    QString pattern;
};

/// What a file dialog asks. Paths are program paths.
struct FileQuestion {
    QString title = {};
    QList<FileFilter> filters = {};
    qint32 filterIndex = 1; ///< the filter shown first, counted from 1
    QString folder = {};    ///< where the dialog begins; empty: the current directory
    QString fileName = {};  ///< the name shown in the box at first
    /// Several existing files may be chosen; else one file, existing or not. A new name without a
    /// full stop gets the filter's extension.
    bool several = false;
    bool saves = false; ///< the one file will be written, so its name always counts as new
};

/// What a folder dialog asks. Paths are program paths.
struct FolderQuestion {
    QString title = {};
    QString folder = {}; ///< where the dialog begins; empty: the current directory
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

    /// The program paths of the files chosen, all in one folder; none when the user cancelled.
    virtual QStringList AskFiles(const FileQuestion& question) = 0;
    /// The program path of the folder chosen; empty when the user cancelled.
    virtual QString AskFolder(const FolderQuestion& question) = 0;
};

} // namespace velmora::desktop
