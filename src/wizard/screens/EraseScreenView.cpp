// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/EraseScreenView.h"

#include "ui_ConfigurationPage.h"
#include "ui_FormatPage.h"
#include "wizard/FrmMain.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/FormatPage.h"

namespace velmora::wizard {

EraseScreenView::EraseScreenView(FrmMain& window, runtime::EventPump& pump)
    : window_(window)
    , pump_(pump)
{
}

void EraseScreenView::Pump() { pump_.Pump(); }

shell::MessageAnswer EraseScreenView::MsgBox(
    const QString& text, qint32 style, const QString& title)
{
    return messages_.MsgBox(text, style, title);
}

qint16 EraseScreenView::Combo1ListIndex() const
{
    return static_cast<qint16>(window_.Formats().Controls().Combo1->currentIndex());
}

void EraseScreenView::SetlblErase(const QString& caption)
{
    window_.Configuration().Controls().lblErase->setText(caption);
}

void EraseScreenView::ShowlblErase(bool isVisible)
{
    window_.Configuration().Controls().lblErase->setVisible(isVisible);
}

void EraseScreenView::SetCapture()
{
    window_.Capture().SetCapture(*window_.Configuration().Controls().EraseDiscbutton);
}

void EraseScreenView::ReleaseCapture() { window_.Capture().ReleaseCapture(); }

} // namespace velmora::wizard
