// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/DesktopMessages.h"
#include "wizard/rules/StartScreen.h"

#include <functional>

namespace velmora::wizard {

class FrmMain;

/// What the start sets up on the window.
class StartView final : public StartScreen {
public:
    /// All of it must outlive the view.
    /// @param createIcons  makes the list of the icons of files
    /// @param setUpList    gives the list of the compilation its icons and columns
    StartView(FrmMain& window, std::function<void()> createIcons, std::function<void()> setUpList);

    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override;
    shell::MessageAnswer MsgBoxWithAdvice(
        const QString& text, qint32 style, const QString& title, const QString& advice) override;
    void SetCaption(const QString& caption) override;
    QString FolderText() const override;
    void ShowFolder(const QString& caption) override;
    void ShowRecorder(const QString& caption) override;
    void ClearRecorders() override;
    void OfferRecorder(const QString& item) override;
    qint16 RecorderCount() const override;
    QString RecorderName(qint16 index) const override;
    qint16 SelectedRecorder() const override;
    void SelectRecorder(qint16 index) override;
    void ShowTemporaryDirectory(const text::ProgramPath& path) override;
    void CreateIcons() override;
    void SetUpList() override;
    void SetDiscName(const QString& name) override;

private:
    FrmMain& window_;
    std::function<void()> createIcons_;
    std::function<void()> setUpList_;
    dialogs::DesktopMessages messages_;
};

} // namespace velmora::wizard
