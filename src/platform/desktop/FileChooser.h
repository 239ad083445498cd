// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace velmora::desktop {

/// One kind of file on offer: what a person reads, and the pattern of its names, as "*.iso".
struct FileFilter {
    QString text;
    QString pattern;
};

/// What a file dialog is to ask. Paths are program paths.
struct FileQuestion {
    QString title = {};
    QList<FileFilter> filters = {};
    qint32 filterIndex = 1; ///< the filter shown first, counted from 1
    QString folder = {};    ///< where the dialog begins; empty: the current directory
    QString fileName = {};  ///< the name that stands in the box at first
    /// Several existing files may be chosen; else one file, existing or not. A new name without a
    /// full stop ends as the filter's names do.
    bool several = false;
    bool saves = false; ///< the one file is to be written, so that its name is always a new one
};

/// What a folder dialog is to ask. Paths are program paths.
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

    /// The program paths of the files chosen, all of one folder; none when the user gave up.
    virtual QStringList AskFiles(const FileQuestion& question) = 0;
    /// The program path of the folder chosen; empty when the user gave up.
    virtual QString AskFolder(const FolderQuestion& question) = 0;
};

} // namespace velmora::desktop
