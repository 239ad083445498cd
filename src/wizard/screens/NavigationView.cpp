// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/screens/NavigationView.h"

#include "ui_ConfigurationPage.h"
#include "ui_FrmMain.h"
#include "ui_ListPage.h"
#include "wizard/FrmMain.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/ListPage.h"

#include <QSignalBlocker>

namespace velmora::wizard {

NavigationView::NavigationView(FrmMain& window)
    : window_(window)
{
}

void NavigationView::PlaceRootContainer1(qint16 index, bool isOnScreen)
{
    window_.PlaceRootContainer1(index, isOnScreen);
}

void NavigationView::PlaceBurnDataContainer1(qint16 index, bool isOnScreen)
{
    window_.PlaceBurnDataContainer1(index, isOnScreen);
}

void NavigationView::Showselectedtab(qint16 tab)
{
    QTabBar* tabs = window_.Controls().CorvaneTab1;
    const QSignalBlocker quiet(tabs); // the click is the navigation's own
    tabs->setCurrentIndex(tab - 1);
}

void NavigationView::HidelblErase() { window_.Configuration().Controls().lblErase->hide(); }

void NavigationView::FocusDiscName() { window_.List().Controls().DiscName->setFocus(); }

void NavigationView::FocusCorvFermer() { window_.List().Controls().CorvFermer->setFocus(); }

void NavigationView::Unload() { window_.close(); }

} // namespace velmora::wizard
