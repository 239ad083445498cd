// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/CmnDialogEx.h"

#include "desktop/FileChooser.h"
#include "dialogs/DialogErrors.h"
#include "text/PathText.h"

#include <QScopedValueRollback>

namespace velmora::dialogs {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kFirstModern = 6;
constexpr qint32 kUnknownToOld = 0x2400F0;
constexpr qint32 kUnknownToModern = 0x600410;

constexpr qint32 kNewStyle = 0x40;
constexpr qint32 kUrls = 0x80;
constexpr qint32 kNoNewFolder = 0x200;
constexpr qint32 kShareable = 0x8000;

/// Some kinds of browsing are only there in the new style, which can make folders.
bool MayMakeFolders(qint32 flags)
{
    const bool isNewStyle = flags == 0 || (flags & (kNewStyle | kUrls | kShareable)) != 0;
    return isNewStyle && (flags & kNoNewFolder) == 0;
}

} // namespace

CmnDialogEx::CmnDialogEx(desktop::FileChooser& chooser, qint32 version)
    : chooser_(chooser)
    , version_(version)
{
}

void CmnDialogEx::Clear()
{
    if (isOpen_) {
        return;
    }
    CancelError = false;
    FlagsFolderBrowsing = 0;
    DialogTitle.clear();
    FileName.clear();
    initDir_.clear();
    flagsDialog_ = 0;
}

bool CmnDialogEx::ShowBrowseForFolder()
{
    if (version_ == 0) {
        throw DialogError(dialog_code::kNoDialog, {});
    }
    {
        const QScopedValueRollback open(isOpen_, true);
        FileName = chooser_.AskFolder({.title = DialogTitle,
            .folder = initDir_,
            .mayMakeFolders = MayMakeFolders(FlagsFolderBrowsing)});
    }
    if (FileName.isEmpty() && CancelError) {
        throw DialogError(dialog_code::kCancelled, u"BrowseForFolder"_s);
    }
    return !FileName.isEmpty();
}

void CmnDialogEx::SetInitDir(const QString& folder)
{
    if (isOpen_) {
        return;
    }
    if (folder.startsWith(u'/')) {
        initDir_ = text::ExchangeSlashes(folder);
    } else if (folder.startsWith(u'\\')) {
        initDir_ = folder;
    } else if (folder.contains(u':')) {
        initDir_ = QString(folder).replace(u'/', u'\\');
    } else {
        initDir_.clear();
    }
}

void CmnDialogEx::SetFlagsDialog(qint32 flags)
{
    flagsDialog_ = flags & ~(version_ < kFirstModern ? kUnknownToOld : kUnknownToModern);
}

} // namespace velmora::dialogs
