// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/EraseScreenView.h"

#include "desktop/AccessibleWidgets.h"
#include "wizard/FrmMain.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/FormatPage.h"

namespace velmora::wizard {

EraseScreenView::EraseScreenView(FrmMain& window, runtime::EventPump& pump, const Closing& closing)
    : window_(window)
    , pump_(pump)
    , closing_(closing)
{
}

void EraseScreenView::Pump() { pump_.Pump(); }

shell::MessageAnswer EraseScreenView::MsgBox(
    const QString& text, qint32 style, const QString& title)
{
    return messages_.MsgBox(text, style, title);
}

shell::MessageAnswer EraseScreenView::MsgBoxWithAdvice(
    const QString& text, qint32 style, const QString& title, const QString& advice)
{
    return messages_.MsgBoxWithAdvice(text, style, title, advice);
}

qint16 EraseScreenView::RecorderPlace() const { return window_.Formats().SelectedRecorder(); }

void EraseScreenView::SetStatus(const QString& text)
{
    window_.Configuration().SetEraseStatus(text);
    const QString words = spoken_.OnStatus(text);
    if (!words.isEmpty()) {
        desktop::Announce(window_.Configuration(), words);
    }
}

void EraseScreenView::ShowStatus(bool isVisible)
{
    window_.Configuration().ShowEraseStatus(isVisible);
}

void EraseScreenView::CaptureMouse() { window_.Configuration().HoldMouse(window_.Capture()); }

void EraseScreenView::ReleaseMouse() { window_.Capture().ReleaseCapture(); }

} // namespace velmora::wizard
