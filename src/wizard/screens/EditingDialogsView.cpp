// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/EditingDialogsView.h"

#include "compilation/forms/FrmMakeDir.h"
#include "desktop/FileChooser.h"
#include "desktop/FileManager.h"
#include "dialogs/CommonDialog.h"
#include "text/PathText.h"

#include <QDir>

namespace velmora::wizard {

EditingDialogsView::EditingDialogsView(QWidget& window,
    dialogs::CommonDialog& CommonDialog1,
    desktop::FileChooser& chooser,
    const compilation::CompilationList& ListFile)
    : window_(window)
    , CommonDialog1_(CommonDialog1)
    , chooser_(chooser)
    , ListFile_(ListFile)
{
}

QString EditingDialogsView::ShowOpen(const compilation::AddFilesDialog& dialog)
{
    CommonDialog1_.DialogTitle = dialog.DialogTitle;
    CommonDialog1_.Filter = dialog.Filter;
    CommonDialog1_.Saves = false;
    CommonDialog1_.Flags = dialog.Flags;
    CommonDialog1_.InitDir = dialog.InitDir;
    CommonDialog1_.FileName = dialog.FileName;
    CommonDialog1_.ShowOpen();
    return CommonDialog1_.FileName;
}

text::ProgramPath EditingDialogsView::BrowseForFolder(const QString& title)
{
    return chooser_.AskFolder({.title = title, .mayMakeFolders = false});
}

text::DiscPath EditingDialogsView::AskNewDirectory()
{
    compilation::FrmMakeDir form(ListFile_, &window_);
    form.exec();
    return form.NewDirectoryPath();
}

void EditingDialogsView::StartExplorer()
{
    desktop::OpenInFileManager(text::FromQtPath(QDir::homePath()));
}

} // namespace velmora::wizard
