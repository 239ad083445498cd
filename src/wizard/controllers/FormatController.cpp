// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controllers/FormatController.h"

#include "wizard/FrmMain.h"
#include "wizard/Handlers.h"
#include "wizard/pages/FormatPage.h"
#include "wizard/pages/OptionsPage.h"
#include "wizard/rules/Navigation.h"
#include "wizard/rules/NavigationScreen.h"
#include "wizard/rules/StartScreen.h"
#include "wizard/screens/BurnScreenView.h"

namespace velmora::wizard {

FormatController::FormatController(const ControllerContext& context,
    compilation::CapacityAccount& capacity,
    NavigationScreen& pages,
    StartScreen& startScreen)
    : context_(context)
    , formatScreen_(context.window)
    , formatChoice_({.state = context.state,
          .recorders = context.recorders,
          .mastering = context.wizard.mastering,
          .clock = context.wizard.clock,
          .capacity = capacity,
          .screen = formatScreen_,
          .pages = pages,
          .burnPage = context.burnScreen,
          .navigation = context.navigation})
    , discOptions_(context.state, capacity)
    , recorderChoice_(
          context.state, context.recorders, context.wizard.settings, startScreen, formatScreen_)
{
    ServePages();
}

void FormatController::ServePages()
{
    Handlers& handlers = context_.handlers;
    context_.window.Formats().Serve(
        {.useRecorder = handlers.Click([this] { recorderChoice_.Combo1(); }),
            .takeFormat = [this](shell::DiscFormat format) {
                context_.handlers.RunTask([this, format] { formatChoice_.CorvaneButton2(format); });
            }});
    context_.window.Options().Serve(
        {.goToBurn = handlers.Click([this] { context_.navigation.CorvSuivant(); }),
            .showList = handlers.Click([this] { context_.navigation.CorvFichiers(); }),
            .takeSize = [this](compilation::DiscSize size) {
                context_.handlers.Run([this, size] { discOptions_.TakeSize(size); });
            }});
}

} // namespace velmora::wizard
