// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/NavigationView.h"

#include "wizard/FrmMain.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/HeadBand.h"
#include "wizard/pages/ListPage.h"

#include <utility>

namespace velmora::wizard {

NavigationView::NavigationView(FrmMain& window, std::function<void(bool comes)> onBurnPage)
    : window_(window)
    , onBurnPage_(std::move(onBurnPage))
{
}

void NavigationView::PlaceRootPage(RootPage page, bool isOnScreen)
{
    window_.PlaceRootPage(page, isOnScreen);
}

void NavigationView::PlaceBurnPage(shell::WizardPage page, bool isOnScreen)
{
    window_.PlaceBurnPage(page, isOnScreen);
    if (page == shell::WizardPage::Burn) {
        onBurnPage_(isOnScreen);
    }
}

void NavigationView::SelectTab(Tab tab) { window_.Band().ShowTab(tab); }

void NavigationView::HideEraseStatus() { window_.Configuration().ShowEraseStatus(false); }

void NavigationView::FocusDiscName() { window_.List().FocusDiscName(); }

void NavigationView::FocusCloseList() { window_.List().FocusClose(); }

void NavigationView::CloseWindow() { window_.close(); }

} // namespace velmora::wizard
