// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/Navigation.h"

#include "shell/ProgramState.h"
#include "wizard/rules/NavigationScreen.h"
#include "writing/BurnScreen.h"

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using writing::RunBar;

namespace {

constexpr qint16 kTabs = 2;

// WizardStage.
constexpr qint16 kRootStage = 0;
constexpr qint16 kBurnStage = 1;

// BurnPage, and the members of BurnDataContainer1.
constexpr qint16 kOptionsPage = 0;
constexpr qint16 kListPage = 1;
constexpr qint16 kBurnPage = 2;
constexpr qint16 kBurnPages = 3;

} // namespace

Navigation::Navigation(
    shell::ProgramState& state, NavigationScreen& screen, writing::BurnScreen& burnPage)
    : state_(state)
    , screen_(screen)
    , burnPage_(burnPage)
{
}

void Navigation::Setselectedtab(qint16 tab)
{
    const qint16 previousTab = selectedtab_;
    selectedtab_ = tab;
    screen_.Showselectedtab(tab);
    CorvaneTab1_Click(previousTab);
}

void Navigation::CorvaneTab1_Click(qint16 previousTab)
{
    if (state_.WizardStage == kRootStage) {
        ShowRootPage();
        return;
    }
    // Setting the tab back is a click of its own, which must not set it forth again.
    if (selectedtab_ != previousTab && !isSettingBack_) {
        isSettingBack_ = true;
        Setselectedtab(previousTab);
        isSettingBack_ = false;
    }
}

void Navigation::ShowRootPage()
{
    screen_.HidelblErase();
    state_.WizardStage = kRootStage;
    screen_.PlaceRootContainer1(0, selectedtab_ == 1);
    screen_.PlaceRootContainer1(1, false);
    screen_.PlaceRootContainer1(2, false);
    screen_.PlaceRootContainer1(3, selectedtab_ == 2);
}

void Navigation::ResetContainer()
{
    for (qint16 index = 0; index < kBurnPages; ++index) {
        screen_.PlaceBurnDataContainer1(index, false);
    }
}

void Navigation::ShowBurndataContainer(qint16 index)
{
    ResetContainer();
    if (index >= 0 && index < kBurnPages) {
        screen_.PlaceBurnDataContainer1(index, true);
    }
}

void Navigation::EnterBurnPages()
{
    state_.WizardStage = kBurnStage;
    state_.BurnPage = kOptionsPage;
    screen_.PlaceRootContainer1(0, false);
    screen_.PlaceBurnDataContainer1(kOptionsPage, true);
}

void Navigation::ShowFormatPage() { screen_.PlaceRootContainer1(0, true); }

bool Navigation::IsAtWayOut() const { return state_.WizardStage == kRootStage || state_.BurnDone; }

void Navigation::CorvaneButton1()
{
    if (IsAtWayOut()) {
        screen_.Unload();
        return;
    }
    ResetContainer();
    state_.WizardStage = kRootStage;
    Setselectedtab(selectedtab_);
}

void Navigation::NextButton()
{
    if (state_.WizardStage == kRootStage) {
        const bool isLast = selectedtab_ >= kTabs;
        Setselectedtab(isLast ? qint16 {1} : static_cast<qint16>(selectedtab_ + 1));
    } else if (state_.WizardStage == kBurnStage) {
        if (state_.BurnPage >= kBurnPage) {
            burnPage_.Beep();
            return;
        }
        GoToBurnPage(static_cast<qint16>(state_.BurnPage + 1));
        if (state_.BurnPage == kListPage) {
            screen_.FocusDiscName();
        } else {
            PrepareBurnPage();
        }
    }
}

void Navigation::PreviousButton()
{
    if (state_.WizardStage == kRootStage) {
        const bool isFirst = selectedtab_ <= 1;
        Setselectedtab(isFirst ? kTabs : static_cast<qint16>(selectedtab_ - 1));
    } else if (state_.WizardStage == kBurnStage) {
        if (state_.BurnPage < 1) {
            burnPage_.Beep();
            return;
        }
        GoToBurnPage(static_cast<qint16>(state_.BurnPage - 1));
    }
}

void Navigation::CorvSuivant()
{
    screen_.PlaceBurnDataContainer1(kOptionsPage, false);
    state_.BurnPage = kBurnPage;
    screen_.PlaceBurnDataContainer1(kBurnPage, true);
    PrepareBurnPage();
}

void Navigation::CorvFichiers()
{
    screen_.PlaceBurnDataContainer1(kListPage, true);
    screen_.FocusCorvFermer();
}

void Navigation::CorvFermer() { screen_.PlaceBurnDataContainer1(kListPage, false); }

void Navigation::GoToBurnPage(qint16 page)
{
    screen_.PlaceBurnDataContainer1(state_.BurnPage, false);
    state_.BurnPage = page;
    screen_.PlaceBurnDataContainer1(page, true);
}

void Navigation::PrepareBurnPage()
{
    burnPage_.ShowBar(RunBar::Corvane7ProgressBar1, false);
    burnPage_.ShowBurnButton(0, true);
    burnPage_.ShowBurnButton(1, true);
    burnPage_.ShowBurnButton(2, false);
    burnPage_.SetLabel14(u"Choisissez de créer une image disque Iso ou de graver un disque."_s);
    burnPage_.ShowLog({}, true);
}

} // namespace velmora::wizard
