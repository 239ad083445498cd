// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/DesktopMessages.h"
#include "writing/EraseScreen.h"

namespace velmora::wizard {

class FrmMain;

/// The page of the configuration, as an erase sees it.
class EraseScreenView final : public writing::EraseScreen {
public:
    /// Both must outlive the view.
    EraseScreenView(FrmMain& window, runtime::EventPump& pump);

    void Pump() override;
    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override;
    qint16 RecorderPlace() const override;
    void SetStatus(const QString& text) override;
    void ShowStatus(bool isVisible) override;
    void CaptureMouse() override;
    void ReleaseMouse() override;

private:
    FrmMain& window_;
    runtime::EventPump& pump_;
    dialogs::DesktopMessages messages_;
};

} // namespace velmora::wizard
