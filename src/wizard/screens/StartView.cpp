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
    FrmMain& window, std::function<void()> createIcons, std::function<void()> setUpList)
    : window_(window)
    , createIcons_(std::move(createIcons))
    , setUpList_(std::move(setUpList))
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

QString StartView::FolderText() const { return window_.Formats().FolderCaption(); }

void StartView::ShowFolder(const QString& caption) { window_.Formats().SetFolderCaption(caption); }

void StartView::ShowRecorder(const QString& caption) { window_.Band().ShowRecorder(caption); }

void StartView::ClearRecorders() { window_.Formats().ClearRecorders(); }

void StartView::OfferRecorder(const QString& item) { window_.Formats().AddRecorder(item); }

qint16 StartView::RecorderCount() const { return window_.Formats().RecorderCount(); }

QString StartView::RecorderName(qint16 index) const
{
    return window_.Formats().RecorderName(index);
}

qint16 StartView::SelectedRecorder() const { return window_.Formats().SelectedRecorder(); }

void StartView::SelectRecorder(qint16 index) { window_.Formats().SelectRecorder(index); }

void StartView::ShowTemporaryDirectory(const text::ProgramPath& path)
{
    window_.Configuration().SetTemporaryDirectory(path);
}

void StartView::CreateIcons() { createIcons_(); }

void StartView::SetUpList() { setUpList_(); }

void StartView::SetDiscName(const QString& name) { window_.List().SetDiscName(name); }

} // namespace velmora::wizard
