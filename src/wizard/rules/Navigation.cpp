// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/rules/Navigation.h"

#include "writing/BurnScreen.h"

namespace velmora::wizard {

using namespace Qt::StringLiterals;
using shell::WizardPage;
using shell::WizardStage;
using writing::BurnButton;
using writing::ProgressOf;

namespace {

/// Of two tabs the next one is also the previous one.
Tab OtherThan(Tab tab) { return tab == Tab::DataDisc ? Tab::Options : Tab::DataDisc; }

} // namespace

Navigation::Navigation(
    shell::ProgramState& state, NavigationScreen& screen, writing::BurnScreen& burnPage)
    : state_(state)
    , screen_(screen)
    , burnPage_(burnPage)
{
}

void Navigation::Setselectedtab(Tab tab)
{
    const Tab previousTab = selectedtab_;
    selectedtab_ = tab;
    screen_.SelectTab(tab);
    CorvaneTab1_Click(previousTab);
}

void Navigation::CorvaneTab1_Click(Tab previousTab)
{
    if (state_.WizardStage == WizardStage::RootPages) {
        ShowRootPage();
        return;
    }
    // Setting the tab back is itself a click, which must not change it again.
    if (selectedtab_ != previousTab && !isSettingBack_) {
        isSettingBack_ = true;
        Setselectedtab(previousTab);
        isSettingBack_ = false;
    }
}

void Navigation::ShowRootPage()
{
    screen_.HideEraseStatus();
    state_.WizardStage = WizardStage::RootPages;
    screen_.PlaceRootPage(RootPage::Formats, selectedtab_ == Tab::DataDisc);
    screen_.PlaceRootPage(RootPage::Audio, false);
    screen_.PlaceRootPage(RootPage::Video, false);
    screen_.PlaceRootPage(RootPage::Configuration, selectedtab_ == Tab::Options);
}

void Navigation::ResetContainer()
{
    for (const WizardPage page : {WizardPage::Options, WizardPage::List, WizardPage::Burn}) {
        screen_.PlaceBurnPage(page, false);
    }
}

void Navigation::EnterBurnPages()
{
    state_.WizardStage = WizardStage::BurnPages;
    state_.BurnPage = WizardPage::Options;
    screen_.PlaceRootPage(RootPage::Formats, false);
    screen_.PlaceBurnPage(WizardPage::Options, true);
}

void Navigation::ShowFormatPage() { screen_.PlaceRootPage(RootPage::Formats, true); }

bool Navigation::IsAtWayOut() const
{
    return state_.WizardStage == WizardStage::RootPages || state_.BurnDone;
}

void Navigation::CorvaneButton1()
{
    if (IsAtWayOut()) {
        screen_.CloseWindow();
        return;
    }
    ResetContainer();
    state_.WizardStage = WizardStage::RootPages;
    Setselectedtab(selectedtab_);
}

void Navigation::NextButton()
{
    if (state_.WizardStage == WizardStage::RootPages) {
        Setselectedtab(OtherThan(selectedtab_));
        return;
    }
    switch (state_.BurnPage) {
    case WizardPage::Options:
        GoToBurnPage(WizardPage::List);
        screen_.FocusDiscName();
        break;
    case WizardPage::List:
        GoToBurnPage(WizardPage::Burn);
        PrepareBurnPage();
        break;
    case WizardPage::Burn:
        burnPage_.Beep();
        break;
    }
}

void Navigation::PreviousButton()
{
    if (state_.WizardStage == WizardStage::RootPages) {
        Setselectedtab(OtherThan(selectedtab_));
        return;
    }
    switch (state_.BurnPage) {
    case WizardPage::Options:
        burnPage_.Beep();
        break;
    case WizardPage::List:
        GoToBurnPage(WizardPage::Options);
        break;
    case WizardPage::Burn:
        GoToBurnPage(WizardPage::List);
        break;
    }
}

void Navigation::CorvSuivant()
{
    screen_.PlaceBurnPage(WizardPage::Options, false);
    state_.BurnPage = WizardPage::Burn;
    screen_.PlaceBurnPage(WizardPage::Burn, true);
    PrepareBurnPage();
}

void Navigation::CorvFichiers()
{
    screen_.PlaceBurnPage(WizardPage::List, true);
    screen_.FocusCloseList();
}

void Navigation::CorvFermer() { screen_.PlaceBurnPage(WizardPage::List, false); }

void Navigation::GoToBurnPage(WizardPage page)
{
    screen_.PlaceBurnPage(state_.BurnPage, false);
    state_.BurnPage = page;
    screen_.PlaceBurnPage(page, true);
}

void Navigation::PrepareBurnPage()
{
    burnPage_.ShowProgress(ProgressOf::Run, false);
    burnPage_.ShowBurnButton(BurnButton::BurnDisc, true);
    burnPage_.ShowBurnButton(BurnButton::MakeIsoFile, true);
    burnPage_.ShowBurnButton(BurnButton::Stop, false);
    burnPage_.SetStatus(u"Choisissez de créer une image disque Iso ou de graver un disque."_s);
    burnPage_.StartLog({});
}

} // namespace velmora::wizard
