// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/EraseScreenView.h"

#include "wizard/FrmMain.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/FormatPage.h"

#include <QPushButton>

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

qint16 EraseScreenView::Combo1ListIndex() const { return window_.Formats().SelectedRecorder(); }

void EraseScreenView::SetlblErase(const QString& caption)
{
    window_.Configuration().SetEraseStatus(caption);
}

void EraseScreenView::ShowlblErase(bool isVisible)
{
    window_.Configuration().ShowEraseStatus(isVisible);
}

void EraseScreenView::SetCapture()
{
    window_.Capture().SetCapture(window_.Configuration().EraseButton());
}

void EraseScreenView::ReleaseCapture() { window_.Capture().ReleaseCapture(); }

} // namespace velmora::wizard
