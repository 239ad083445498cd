// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/DesktopMessages.h"
#include "dialogs/DesktopPointer.h"
#include "shell/OperationLog.h"
#include "text/Paths.h"
#include "wizard/rules/SpokenStatus.h"
#include "writing/BurnScreen.h"

#include <functional>
#include <utility>

namespace velmora::dialogs {
class CommonDialog;
}

namespace velmora::wizard {

class FrmMain;

/// The burn page of the window, and what lies over every page, as a run sees it.
class BurnScreenView final : public writing::BurnScreen {
public:
    /// All of it must outlive the view.
    BurnScreenView(FrmMain& window, runtime::EventPump& pump, dialogs::CommonDialog& CommonDialog1);
    ~BurnScreenView() override;

    /// No image may replace a file for which this is true.
    void ProtectSources(std::function<bool(const text::ProgramPath& file)> isSource)
    {
        isSource_ = std::move(isSource);
    }

    void Pump() override;
    void SetMousePointer(shell::MousePointer pointer) override;
    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override;
    shell::MessageAnswer MsgBoxWithAdvice(
        const QString& text, qint32 style, const QString& title, const QString& advice) override;
    void AddLogLine(const QString& line) override;
    void StartLog(const QString& firstLine) override;
    /// The whole log, as OperationLog has it.
    const QString& Log() const { return log_.Text(); }
    void SetStatus(const QString& text) override;
    void SetProgress(writing::ProgressOf what, qint16 percent) override;
    void ShowProgress(writing::ProgressOf what, bool isVisible) override;
    void ShowFigures(const writing::RunFigures& figures) override;
    void ShowBurnButton(writing::BurnButton button, bool isVisible) override;
    void ShowDriveWait(bool isVisible) override;
    void SetWaitBar(writing::WaitBar state) override;
    void Beep() override;
    text::ProgramPath AskIsoFile(writing::IsoFileUse use) override;
    void ShowIsoRunPage() override;
    /// Answers the next question for an image to burn, instead of the dialog.
    void OfferImage(const text::ProgramPath& image);
    void CaptureMouse() override;
    void ReleaseMouse() override;

private:
    void Say(const QString& words);

    FrmMain& window_;
    runtime::EventPump& pump_;
    dialogs::CommonDialog& CommonDialog1_;
    SpokenStatus spoken_;
    text::ProgramPath offeredImage_;
    dialogs::DesktopMessages messages_;
    dialogs::DesktopPointer pointer_;
    shell::OperationLog log_;
    std::function<bool(const text::ProgramPath&)> isSource_
        = [](const text::ProgramPath&) { return false; };
};

} // namespace velmora::wizard
