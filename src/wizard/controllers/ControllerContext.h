// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velmora::dialogs {
class CommonDialog;
}
namespace velmora::recorder {
struct RecorderState;
}
namespace velmora::shell {
struct ProgramState;
}

namespace velmora::wizard {

class BurnScreenView;
class Closing;
class FrmMain;
class Handlers;
class Navigation;
struct WizardContext;

/// What every controller depends on. All of it outlives the controllers.
struct ControllerContext {
    FrmMain& window;
    const WizardContext& wizard;
    shell::ProgramState& state;
    recorder::RecorderState& recorders;
    dialogs::CommonDialog& CommonDialog1;
    BurnScreenView& burnScreen;
    Navigation& navigation;
    Handlers& handlers;
    const Closing& closing;
};

} // namespace velmora::wizard
