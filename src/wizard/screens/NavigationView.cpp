// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/NavigationView.h"

#include "wizard/FrmMain.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/HeadBand.h"
#include "wizard/pages/ListPage.h"

#include <utility>

namespace velmora::wizard {

NavigationView::NavigationView(FrmMain& window, std::function<void()> onBurnPage)
    : window_(window)
    , onBurnPage_(std::move(onBurnPage))
{
}

void NavigationView::PlaceRootContainer1(RootPage page, bool isOnScreen)
{
    window_.PlaceRootContainer1(page, isOnScreen);
}

void NavigationView::PlaceBurnDataContainer1(shell::WizardPage page, bool isOnScreen)
{
    window_.PlaceBurnDataContainer1(page, isOnScreen);
    if (isOnScreen && page == shell::WizardPage::Burn) {
        onBurnPage_();
    }
}

void NavigationView::Showselectedtab(qint16 tab) { window_.Band().ShowTab(tab); }

void NavigationView::HidelblErase() { window_.Configuration().ShowEraseStatus(false); }

void NavigationView::FocusDiscName() { window_.List().FocusDiscName(); }

void NavigationView::FocusCorvFermer() { window_.List().FocusClose(); }

void NavigationView::Unload() { window_.close(); }

} // namespace velmora::wizard
