// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/controllers/ControllerContext.h"
#include "wizard/rules/DiscOptions.h"
#include "wizard/rules/FormatChoice.h"
#include "wizard/rules/RecorderChoice.h"
#include "wizard/screens/FormatScreenView.h"

namespace velmora::compilation {
class CapacityAccount;
}

namespace velmora::wizard {

class NavigationScreen;
class StartScreen;

/// The choice of a recorder, of a disc format and of a disc's size, and the handlers of their
/// pages.
class FormatController {
public:
    /// All of it must outlive the controller.
    FormatController(const ControllerContext& context,
        compilation::CapacityAccount& capacity,
        NavigationScreen& pages,
        StartScreen& startScreen);

private:
    void ServePages();

    ControllerContext context_;
    FormatScreenView formatScreen_;
    FormatChoice formatChoice_;
    DiscOptions discOptions_;
    RecorderChoice recorderChoice_;
};

} // namespace velmora::wizard
