// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/StartView.h"

#include "wizard/FrmMain.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/FormatPage.h"
#include "wizard/pages/HeadBand.h"
#include "wizard/pages/ListPage.h"

#include <utility>

namespace velmora::wizard {

StartView::StartView(
    FrmMain& window, std::function<void()> createSysImageList, std::function<void()> setUpListFile)
    : window_(window)
    , createSysImageList_(std::move(createSysImageList))
    , setUpListFile_(std::move(setUpListFile))
{
}

shell::MessageAnswer StartView::MsgBox(const QString& text, qint32 style, const QString& title)
{
    return messages_.MsgBox(text, style, title);
}

shell::MessageAnswer StartView::MsgBoxWithAdvice(
    const QString& text, qint32 style, const QString& title, const QString& advice)
{
    return messages_.MsgBoxWithAdvice(text, style, title, advice);
}

void StartView::SetCaption(const QString& caption) { window_.setWindowTitle(caption); }

QString StartView::lblDossier() const { return window_.Formats().FolderCaption(); }

void StartView::SetlblDossier(const QString& caption)
{
    window_.Formats().SetFolderCaption(caption);
}

void StartView::SetlblGraveur(const QString& caption) { window_.Band().ShowRecorder(caption); }

void StartView::ClearCombo1() { window_.Formats().ClearRecorders(); }

void StartView::AddToCombo1(const QString& item) { window_.Formats().AddRecorder(item); }

qint16 StartView::Combo1ListCount() const { return window_.Formats().RecorderCount(); }

QString StartView::Combo1List(qint16 index) const { return window_.Formats().RecorderName(index); }

qint16 StartView::Combo1ListIndex() const { return window_.Formats().SelectedRecorder(); }

void StartView::SetCombo1ListIndex(qint16 index) { window_.Formats().SelectRecorder(index); }

void StartView::SetRepTempTxt(const QString& path)
{
    window_.Configuration().SetTemporaryDirectory(path);
}

void StartView::CreateSysImageList() { createSysImageList_(); }

void StartView::SetUpListFile() { setUpListFile_(); }

void StartView::SetDiscName(const QString& name) { window_.List().SetDiscName(name); }

} // namespace velmora::wizard
