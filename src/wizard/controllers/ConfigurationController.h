// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IDiscFormat2Erase.h"
#include "wizard/Handlers.h"
#include "wizard/controllers/ControllerContext.h"
#include "wizard/screens/EraseScreenView.h"

namespace velmora::wizard {

class BurnController;

/// Erasing a disc, the small windows of the configuration, and the handlers of its page.
class ConfigurationController {
public:
    /// @param burns  burns the ISO image; must outlive the controller
    ConfigurationController(const ControllerContext& context, BurnController& burns);

private:
    void ServePage(BurnController& burns);
    /// @return how it ended, in words
    RunOutcome Erase();
    void ShowFrmTemp();
    void ShowFrmBurner();

    ControllerContext context_;
    EraseScreenView eraseScreen_;
    imapi::DiscFormat2EraseRef DataEraser_;
};

} // namespace velmora::wizard
