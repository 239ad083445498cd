// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/ProgramState.h"
#include "wizard/rules/NavigationScreen.h"

namespace velmora::writing {
class BurnScreen;
}

namespace velmora::wizard {

/// Where the wizard stands and how it goes from page to page. WizardStage and BurnPage of the
/// program's state say which pages are on screen.
///
/// A transition doesn't change what a page shows, except for the burn page, which is prepared.
class Navigation {
public:
    /// All of it must outlive the navigation.
    Navigation(shell::ProgramState& state, NavigationScreen& screen, writing::BurnScreen& burnPage);

    /// The selected tab.
    Tab selectedtab() const { return selectedtab_; }
    /// Selects a tab. This is a click even for the tab that is already selected: in the root pages
    /// it brings the tab's page back, in the burn pages the tabs are locked.
    void Setselectedtab(Tab tab);

    /// Hides all burn pages.
    void ResetContainer();

    /// Opens the burn pages on the options.
    void EnterBurnPages();
    /// Brings the page of recorder and disc format back.
    void ShowFormatPage();

    /// Whether CorvaneButton1 would close the window; else it leads back to the root pages.
    bool IsAtWayOut() const;

    // The clicks of the buttons of these names.
    void CorvaneButton1();
    void NextButton();
    void PreviousButton();
    void CorvSuivant();
    void CorvFichiers();
    void CorvFermer();

private:
    void CorvaneTab1_Click(Tab previousTab);
    void ShowRootPage();
    void GoToBurnPage(shell::WizardPage page);
    void PrepareBurnPage();

    shell::ProgramState& state_;
    NavigationScreen& screen_;
    writing::BurnScreen& burnPage_;
    Tab selectedtab_ = Tab::DataDisc;
    bool isSettingBack_ = false;
};

} // namespace velmora::wizard
