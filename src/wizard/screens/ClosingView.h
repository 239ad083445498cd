// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/rules/ClosingScreen.h"

namespace velmora::shell {
struct ProgramState;
}
namespace velmora::writing {
class BurnScreen;
}

namespace velmora::wizard {

class FrmMain;

/// The window and the run, as the end of the program sees them.
class ClosingView final : public ClosingScreen {
public:
    /// All of it must outlive the view.
    ClosingView(FrmMain& window, writing::BurnScreen& burnScreen, shell::ProgramState& state);

    void ShowCloseNotice(bool isVisible) override;
    void CloseWindow() override;
    void RequestStop() override;
    void DeclineQuestion() override;

private:
    FrmMain& window_;
    writing::BurnScreen& burnScreen_;
    shell::ProgramState& state_;
};

} // namespace velmora::wizard
