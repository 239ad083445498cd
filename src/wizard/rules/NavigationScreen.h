// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/ProgramState.h"

#include <QtGlobal>

namespace velmora::wizard {

/// The root pages, in their order (RootContainer1). Those for audio and video are never shown.
enum class RootPage : qint8 { Formats, Audio, Video, Configuration };

/// The tabs at the head of the window (CorvaneTab1), with their numbers of selectedtab.
enum class Tab : qint8 { DataDisc = 1, Options = 2 };

/// What the navigation controls on the window.
class NavigationScreen {
public:
    NavigationScreen() = default;
    NavigationScreen(const NavigationScreen&) = delete;
    NavigationScreen& operator=(const NavigationScreen&) = delete;
    virtual ~NavigationScreen() = default;

    /// Shows or hides a root page (RootContainer1).
    virtual void PlaceRootPage(RootPage page, bool isOnScreen) = 0;
    /// Shows or hides a burn page (BurnDataContainer1). One that is shown while another is on
    /// screen covers it.
    virtual void PlaceBurnPage(shell::WizardPage page, bool isOnScreen) = 0;

    /// Shows a tab as the selected one (showselectedtab).
    virtual void SelectTab(Tab tab) = 0;

    /// Hides the outcome of the last erase (lblErase).
    virtual void HideEraseStatus() = 0;
    virtual void FocusDiscName() = 0;
    /// Gives the focus to the button that closes the list (CorvFermer).
    virtual void FocusCloseList() = 0;

    /// Closes the window, which ends the program.
    virtual void CloseWindow() = 0;
};

} // namespace velmora::wizard
