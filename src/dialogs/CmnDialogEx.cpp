// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CmnDialogEx.h"

#include "desktop/FileChooser.h"
#include "text/PathText.h"

#include <QScopedValueRollback>

namespace velmora::dialogs {

namespace {

constexpr qint32 kNewStyle = 0x40;
constexpr qint32 kUrls = 0x80;
constexpr qint32 kNoNewFolder = 0x200;
constexpr qint32 kShareable = 0x8000;

/// Some kinds of browsing exist only in the new style, which can make folders.
bool MayMakeFolders(qint32 flags)
{
    const bool isNewStyle = flags == 0 || (flags & (kNewStyle | kUrls | kShareable)) != 0;
    return isNewStyle && (flags & kNoNewFolder) == 0;
}

} // namespace

CmnDialogEx::CmnDialogEx(desktop::FileChooser& chooser)
    : chooser_(chooser)
{
}

void CmnDialogEx::Clear()
{
    if (isOpen_) {
        return;
    }
    FlagsFolderBrowsing = 0;
    DialogTitle.clear();
    FileName = {};
    initDir_ = {};
}

bool CmnDialogEx::ShowBrowseForFolder()
{
    {
        const QScopedValueRollback open(isOpen_, true);
        FileName = chooser_.AskFolder({.title = DialogTitle,
            .folder = initDir_,
            .mayMakeFolders = MayMakeFolders(FlagsFolderBrowsing)});
    }
    return !FileName.IsEmpty();
}

void CmnDialogEx::SetInitDir(const QString& written)
{
    if (isOpen_) {
        return;
    }
    if (written.startsWith(u'/')) {
        initDir_ = text::FromTypedPath(written);
    } else if (written.startsWith(u'\\')) {
        initDir_ = text::ProgramPath(written);
    } else if (written.contains(u':')) {
        initDir_ = text::ProgramPath(QString(written).replace(u'/', u'\\'));
    } else {
        initDir_ = {};
    }
}

} // namespace velmora::dialogs
