// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/ProgramState.h"

#include <QtGlobal>

namespace velmora::wizard {

/// The root pages, in their order (RootContainer1). Those of audio and video are never shown.
enum class RootPage : qint8 { Formats, Audio, Video, Configuration };

/// The tabs at the head of the window (CorvaneTab1), with their numbers of selectedtab.
enum class Tab : qint8 { DataDisc = 1, Options = 2 };

/// What the navigation moves on the window.
class NavigationScreen {
public:
    NavigationScreen() = default;
    NavigationScreen(const NavigationScreen&) = delete;
    NavigationScreen& operator=(const NavigationScreen&) = delete;
    virtual ~NavigationScreen() = default;

    /// Brings a root page on screen or takes it away (RootContainer1).
    virtual void PlaceRootPage(RootPage page, bool isOnScreen) = 0;
    /// Brings a burn page on screen or takes it away (BurnDataContainer1). One that comes while
    /// another is on screen lies over it.
    virtual void PlaceBurnPage(shell::WizardPage page, bool isOnScreen) = 0;

    /// Shows a tab as the selected one (showselectedtab).
    virtual void SelectTab(Tab tab) = 0;

    /// Takes away how the last erase ended (lblErase).
    virtual void HideEraseStatus() = 0;
    virtual void FocusDiscName() = 0;
    /// The button that takes the list away gets the focus (CorvFermer).
    virtual void FocusCloseList() = 0;

    /// Closes the window, which ends the program.
    virtual void CloseWindow() = 0;
};

} // namespace velmora::wizard
