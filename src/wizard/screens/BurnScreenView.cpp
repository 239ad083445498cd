// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/BurnScreenView.h"

#include "compilation/NativeSourceFiles.h"
#include "desktop/AccessibleWidgets.h"
#include "dialogs/IsoFileName.h"
#include "shell/PathHelpers.h"
#include "wizard/FrmMain.h"
#include "wizard/pages/BurnPage.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/DiscPanel.h"
#include "wizard/pages/FormatPage.h"
#include "wizard/pages/WaitPanel.h"

#include <QApplication>

#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using writing::ProgressOf;

namespace {

DiscPlan PlanOfImage(const text::ProgramPath& path)
{
    return {.name = shell::LastFolderName(path.Text()),
        .content = u"Une image ISO"_s,
        .bytes = compilation::NativeSourceFiles().FileSize(path)};
}

} // namespace

BurnScreenView::BurnScreenView(
    FrmMain& window, runtime::EventPump& pump, dialogs::CommonDialog& CommonDialog1)
    : window_(window)
    , pump_(pump)
    , CommonDialog1_(CommonDialog1)
{
    log_.AddView(window_.Burn());
}

BurnScreenView::~BurnScreenView() { log_.RemoveView(window_.Burn()); }

void BurnScreenView::Pump() { pump_.Pump(); }

void BurnScreenView::SetMousePointer(shell::MousePointer pointer)
{
    pointer_.SetMousePointer(pointer);
    // A detection on the page of formats may take half a minute, and has no panel of its own.
    window_.DetectionWait().Place(
        pointer == shell::MousePointer::Hourglass && window_.Formats().isVisible());
}

shell::MessageAnswer BurnScreenView::MsgBox(const QString& text, qint32 style, const QString& title)
{
    return messages_.MsgBox(text, style, title);
}

shell::MessageAnswer BurnScreenView::MsgBoxWithAdvice(
    const QString& text, qint32 style, const QString& title, const QString& advice)
{
    return messages_.MsgBoxWithAdvice(text, style, title, advice);
}

void BurnScreenView::AddLogLine(const QString& line) { log_.ShowLog(line, false); }

void BurnScreenView::StartLog(const QString& firstLine) { log_.ShowLog(firstLine, true); }

void BurnScreenView::SetStatus(const QString& text)
{
    window_.Burn().SetStatus(text);
    Say(spoken_.OnStatus(text));
}

void BurnScreenView::Say(const QString& words)
{
    if (!words.isEmpty()) {
        desktop::Announce(window_.Burn(), words);
    }
}

void BurnScreenView::SetProgress(ProgressOf what, qint16 percent)
{
    if (what == ProgressOf::File) {
        window_.Burn().SetFileBarValue(percent);
    } else {
        window_.Burn().SetBarValue(percent);
        Say(spoken_.OnPercent(percent));
    }
}

void BurnScreenView::ShowProgress(ProgressOf what, bool isVisible)
{
    if (what == ProgressOf::File) {
        window_.Burn().ShowFileBar(isVisible);
    } else {
        window_.Burn().ShowBar(isVisible);
    }
}

void BurnScreenView::ShowFigures(const writing::RunFigures& figures)
{
    window_.Burn().ShowFigures(figures);
}

void BurnScreenView::ShowBurnButton(writing::BurnButton button, bool isVisible)
{
    window_.Burn().ShowButton(button, isVisible);
}

void BurnScreenView::ShowDriveWait(bool isVisible) { window_.Frame3DWait().Place(isVisible); }

void BurnScreenView::SetWaitBar(writing::WaitBar state)
{
    if (state != writing::WaitBar::Hidden) {
        window_.RunCorvane7BarWait1(state == writing::WaitBar::Running);
    }
    window_.ShowCorvane7BarWait1(state == writing::WaitBar::Running);
}

void BurnScreenView::Beep() { QApplication::beep(); }

text::ProgramPath BurnScreenView::AskIsoFile(writing::IsoFileUse use)
{
    const bool isOffered = use == writing::IsoFileUse::Burn && !offeredImage_.IsEmpty();
    text::ProgramPath file = isOffered
        ? std::exchange(offeredImage_, {})
        : dialogs::GetIsoFileName(
            CommonDialog1_, messages_, use == writing::IsoFileUse::Write, isSource_);
    window_.Configuration().ShowOfferedImage(offeredImage_);
    if (use == writing::IsoFileUse::Burn && !file.IsEmpty()) {
        window_.Burn().Disc().ShowPlan(PlanOfImage(file));
    }
    return file;
}

void BurnScreenView::OfferImage(const text::ProgramPath& image)
{
    offeredImage_ = image;
    window_.Configuration().ShowOfferedImage(offeredImage_);
}

void BurnScreenView::ShowIsoRunPage()
{
    window_.PlaceBurnPage(shell::WizardPage::Burn, true);
    window_.PlaceRootPage(RootPage::Configuration, false);
}

void BurnScreenView::CaptureMouse() { window_.Burn().HoldMouse(window_.Capture()); }

void BurnScreenView::ReleaseMouse() { window_.Capture().ReleaseCapture(); }

} // namespace velmora::wizard
