// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/StartView.h"

#include "ui_FormatPage.h"
#include "ui_FrmMain.h"
#include "ui_ListPage.h"
#include "wizard/FrmMain.h"
#include "wizard/pages/FormatPage.h"
#include "wizard/pages/ListPage.h"
#include "wizard/screens/TemporaryDirectoryBox.h"

#include <QSignalBlocker>

#include <utility>

namespace velmora::wizard {

StartView::StartView(FrmMain& window,
    TemporaryDirectoryBox& RepTempTxt,
    std::function<void()> createSysImageList,
    std::function<void()> setUpListFile)
    : window_(window)
    , RepTempTxt_(RepTempTxt)
    , createSysImageList_(std::move(createSysImageList))
    , setUpListFile_(std::move(setUpListFile))
{
}

shell::MessageAnswer StartView::MsgBox(const QString& text, qint32 style, const QString& title)
{
    return messages_.MsgBox(text, style, title);
}

void StartView::SetCaption(const QString& caption) { window_.setWindowTitle(caption); }

QString StartView::lblDossier() const { return window_.Formats().Controls().lblDossier->text(); }

void StartView::SetlblDossier(const QString& caption)
{
    window_.Formats().Controls().lblDossier->setText(caption);
}

void StartView::SetlblGraveur(const QString& caption)
{
    window_.Controls().lblGraveur->setText(caption);
}

void StartView::ClearCombo1() { window_.Formats().Controls().Combo1->clear(); }

void StartView::AddToCombo1(const QString& item)
{
    QComboBox* Combo1 = window_.Formats().Controls().Combo1;
    const QSignalBlocker quiet(Combo1);
    const int selected = Combo1->currentIndex();
    Combo1->addItem(item);
    Combo1->setCurrentIndex(selected); // the first item isn't selected by itself
}

qint16 StartView::Combo1ListCount() const
{
    return static_cast<qint16>(window_.Formats().Controls().Combo1->count());
}

QString StartView::Combo1List(qint16 index) const
{
    return window_.Formats().Controls().Combo1->itemText(index);
}

qint16 StartView::Combo1ListIndex() const
{
    return static_cast<qint16>(window_.Formats().Controls().Combo1->currentIndex());
}

void StartView::SetCombo1ListIndex(qint16 index)
{
    window_.Formats().Controls().Combo1->setCurrentIndex(index);
}

void StartView::SetRepTempTxt(const QString& path) { RepTempTxt_.SetPath(path); }

void StartView::CreateSysImageList() { createSysImageList_(); }

void StartView::SetUpListFile() { setUpListFile_(); }

void StartView::SetDiscName(const QString& name)
{
    window_.List().Controls().DiscName->setText(name);
}

} // namespace velmora::wizard
