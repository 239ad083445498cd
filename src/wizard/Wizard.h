// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dialogs/CommonDialog.h"
#include "recorder/RecorderState.h"
#include "shell/ProgramState.h"
#include "wizard/Handlers.h"
#include "wizard/WizardContext.h"
#include "wizard/controllers/BurnController.h"
#include "wizard/controllers/ConfigurationController.h"
#include "wizard/controllers/FormatController.h"
#include "wizard/controllers/ListController.h"
#include "wizard/rules/Closing.h"
#include "wizard/rules/DiscPlan.h"
#include "wizard/rules/Navigation.h"
#include "wizard/rules/StartUp.h"
#include "wizard/rules/WayOut.h"
#include "wizard/screens/BurnScreenView.h"
#include "wizard/screens/ClosingView.h"
#include "wizard/screens/NavigationView.h"
#include "wizard/screens/StartView.h"

namespace velmora::shell {
struct CommandString;
}

namespace velmora::wizard {

class FrmMain;

/// Connects the rules with the window: owns the program's state, and gives every page its
/// controller.
class Wizard {
public:
    /// @param window  must outlive the wizard
    Wizard(FrmMain& window, const WizardContext& context);

    /// The start, before the window is shown. An error is reported and ends the program.
    /// @return false when the program should end at once
    bool Form_Load(const shell::CommandString& command);

    /// The same without a folder, on the page of the image and the erase. That page decides about
    /// the disc, by the same rules.
    /// @param image  the one to burn without asking; empty: none
    bool LoadTools(const text::ProgramPath& image);

    /// The session ends, or the program is ended from outside: the current task is stopped as by
    /// the stop button, questions are answered with no, and the window closes.
    void End() { closing_.End(handlers_.IsTaskRunning()); }

private:
    ControllerContext Controllers();
    void ServeWindow();
    /// Shows what a handler may have changed.
    void Refresh();
    void PrepareBurnPage(bool comes);
    DiscPlan Plan() const;
    void Form_Activate();
    void ShowFrmAbout();

    FrmMain& window_;
    WizardContext context_;
    shell::ProgramState state_;
    recorder::RecorderState recorders_;
    dialogs::CommonDialog CommonDialog1_;
    BurnScreenView burnScreen_;
    NavigationView navigationView_;
    Navigation navigation_;
    WayOut wayOut_;
    ClosingView closingView_;
    Closing closing_;
    Handlers handlers_;
    ListController list_;
    StartView startView_;
    FormatController formats_;
    BurnController burns_;
    ConfigurationController configuration_;
    StartUp startUp_;
};

} // namespace velmora::wizard
