// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CommonDialog.h"

#include "desktop/FileChooser.h"
#include "dialogs/FileFilters.h"
#include "runtime/RuntimeError.h"
#include "shell/PathHelpers.h"

namespace velmora::dialogs {

namespace {

constexpr qint32 kSeveralFiles = 0x200;
constexpr qint32 kCancelled = 32755;

/// One file gives its path; several give their folder, then each name.
QString JoinedNames(const QList<text::ProgramPath>& files)
{
    if (files.size() < 2) {
        return files.value(0).Text();
    }
    const QString folder = shell::getFileNameOutofFilePath(files[0].Text(), 0);
    const bool isRoot = folder.size() == 1;
    QStringList parts {isRoot ? folder : shell::NoTrailingBackslash(folder)};
    for (const text::ProgramPath& file : files) {
        parts += shell::getFileNameOutofFilePath(file.Text(), 1);
    }
    return parts.join(QChar(u'\0'));
}

} // namespace

CommonDialog::CommonDialog(desktop::FileChooser& chooser)
    : chooser_(chooser)
{
}

void CommonDialog::ShowOpen()
{
    const QList<text::ProgramPath> files = chooser_.AskFiles({.title = DialogTitle,
        .filters = FileFilters(Filter),
        .filterIndex = FilterIndex,
        .folder = InitDir,
        .fileName = FileName,
        .several = (Flags & kSeveralFiles) != 0,
        .saves = Saves});
    FileName = JoinedNames(files);
    if (files.isEmpty() && CancelError) {
        throw runtime::RuntimeError(kCancelled);
    }
}

} // namespace velmora::dialogs
