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
    /// @param createSysImageList  makes the list of the icons of files
    /// @param setUpListFile       gives the list of the compilation its icons and columns
    StartView(FrmMain& window,
        std::function<void()> createSysImageList,
        std::function<void()> setUpListFile);

    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override;
    shell::MessageAnswer MsgBoxWithAdvice(
        const QString& text, qint32 style, const QString& title, const QString& advice) override;
    void SetCaption(const QString& caption) override;
    QString lblDossier() const override;
    void SetlblDossier(const QString& caption) override;
    void SetlblGraveur(const QString& caption) override;
    void ClearCombo1() override;
    void AddToCombo1(const QString& item) override;
    qint16 Combo1ListCount() const override;
    QString Combo1List(qint16 index) const override;
    qint16 Combo1ListIndex() const override;
    void SetCombo1ListIndex(qint16 index) override;
    void SetRepTempTxt(const QString& path) override;
    void CreateSysImageList() override;
    void SetUpListFile() override;
    void SetDiscName(const QString& name) override;

private:
    FrmMain& window_;
    std::function<void()> createSysImageList_;
    std::function<void()> setUpListFile_;
    dialogs::DesktopMessages messages_;
};

} // namespace velmora::wizard
