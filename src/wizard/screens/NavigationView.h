// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/NavigationScreen.h"

#include <functional>

namespace velmora::wizard {

class FrmMain;

/// The navigation's view of the window.
class NavigationView final : public NavigationScreen {
public:
    /// @param onBurnPage  called whenever the burn page is to be shown (true) or hidden
    NavigationView(FrmMain& window, std::function<void(bool comes)> onBurnPage);

    void PlaceRootPage(RootPage page, bool isOnScreen) override;
    void PlaceBurnPage(shell::WizardPage page, bool isOnScreen) override;
    void SelectTab(Tab tab) override;
    void HideEraseStatus() override;
    void FocusDiscName() override;
    void FocusCloseList() override;
    void CloseWindow() override;

private:
    FrmMain& window_;
    std::function<void(bool comes)> onBurnPage_;
};

} // namespace velmora::wizard
