// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/DesktopMessages.h"
#include "wizard/rules/Closing.h"
#include "wizard/rules/SpokenStatus.h"
#include "writing/EraseScreen.h"

namespace velmora::wizard {

class FrmMain;

/// The configuration page, as an erase sees it.
class EraseScreenView final : public writing::EraseScreen {
public:
    /// All must outlive the view.
    EraseScreenView(FrmMain& window, runtime::EventPump& pump, const Closing& closing);

    void Pump() override;
    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override;
    shell::MessageAnswer MsgBoxWithAdvice(
        const QString& text, qint32 style, const QString& title, const QString& advice) override;
    qint16 RecorderPlace() const override;
    /// No button stops an erase; only the end of the program does.
    bool WantsToStop() const override { return closing_.IsEnding(); }
    void SetStatus(const QString& text) override;
    void ShowStatus(bool isVisible) override;
    void CaptureMouse() override;
    void ReleaseMouse() override;

private:
    FrmMain& window_;
    runtime::EventPump& pump_;
    const Closing& closing_;
    dialogs::DesktopMessages messages_;
    SpokenStatus spoken_;
};

} // namespace velmora::wizard
