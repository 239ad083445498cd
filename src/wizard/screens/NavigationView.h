// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/NavigationScreen.h"

namespace velmora::wizard {

class FrmMain;

/// The navigation's hold on the window.
class NavigationView final : public NavigationScreen {
public:
    explicit NavigationView(FrmMain& window);

    void PlaceRootContainer1(RootPage page, bool isOnScreen) override;
    void PlaceBurnDataContainer1(shell::WizardPage page, bool isOnScreen) override;
    void Showselectedtab(qint16 tab) override;
    void HidelblErase() override;
    void FocusDiscName() override;
    void FocusCorvFermer() override;
    void Unload() override;

private:
    FrmMain& window_;
};

} // namespace velmora::wizard
