// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"
#include "wizard/rules/NavigationScreen.h"

#include <functional>

namespace velmora::compilation {
class Compilation;
}
namespace velmora::imapi {
class Mastering;
}
namespace velmora::recorder {
struct RecorderState;
}
namespace velmora::shell {
struct CommandString;
struct ProgramState;
} // namespace velmora::shell
namespace velmora::store {
class SettingsStore;
}

namespace velmora::wizard {

class Navigation;
class StartScreen;

/// What the start depends on. All of it outlives the start.
struct StartContext {
    shell::ProgramState& state;
    recorder::RecorderState& recorders;
    imapi::Mastering& mastering;
    compilation::Compilation& compilation;
    store::SettingsStore& settings;
    StartScreen& screen;
    Navigation& navigation;
    /// Asks for the folder to burn; empty when the user gave up.
    std::function<text::ProgramPath()> ChooseFolder;
};

/// The start of the program, in its order: the folder, the recorders, the settings, the list.
class StartUp {
public:
    explicit StartUp(StartContext context);

    /// Sets the window up before it is shown.
    /// @return false when the program should end at once; the user has been told where he
    ///         has to be
    bool Form_Load(const shell::CommandString& command);

    /// The same for burning an image or erasing a disc: without a folder, and on the tab of the
    /// options.
    void LoadTools();

    /// The window was shown.
    /// @return false when the window should close: there is no recorder, as the user has been
    ///         told
    bool Form_Activate();

private:
    bool FindFolder(const shell::CommandString& command);
    void ShowFolder();
    void ListRecorders();
    void SelectRemembered();
    void SetUpWindow(Tab tab);

    StartContext context_;
    bool FirstActivation_ = false;
    bool NoRecorder_ = false;
};

} // namespace velmora::wizard
