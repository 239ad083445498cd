// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/Wizard.h"

#include "compilation/SourceSearch.h"
#include "dialogs/frmAbout.h"
#include "wizard/FrmMain.h"
#include "wizard/pages/BurnPage.h"
#include "wizard/pages/DiscPanel.h"
#include "wizard/pages/HeadBand.h"
#include "wizard/pages/ListPage.h"
#include "wizard/pages/OptionsPage.h"
#include "wizard/rules/ChooseFolder.h"

#include <QApplication>

namespace velmora::wizard {

namespace {

constexpr double kMillisecondsPerSecond = 1000;

} // namespace

Wizard::Wizard(FrmMain& window, const WizardContext& context)
    : window_(window)
    , context_(context)
    , CommonDialog1_(context.chooser)
    , burnScreen_(window, context.pump, CommonDialog1_)
    , navigationView_(window, [this](bool comes) { PrepareBurnPage(comes); })
    , navigation_(state_, navigationView_, burnScreen_)
    , wayOut_(
          navigation_, context.clock, QApplication::doubleClickInterval() / kMillisecondsPerSecond)
    , closingView_(window, burnScreen_, state_)
    , closing_(closingView_)
    , handlers_(burnScreen_, context.attendance, [this] { Refresh(); })
    , list_(Controllers())
    , startView_(
          window, [this] { list_.CreateIcons(); }, [this] { list_.SetUpList(); })
    , formats_(Controllers(), list_.Capacity(), navigationView_, startView_)
    , burns_(Controllers(), list_.ListFile())
    , configuration_(Controllers(), burns_)
    , startUp_({.state = state_,
          .recorders = recorders_,
          .mastering = context.mastering,
          .compilation = list_.Content(),
          .settings = context.settings,
          .screen = startView_,
          .navigation = navigation_,
          .ChooseFolder = [this] { return ChooseFolder(context_.chooser, context_.settings); }})
{
    ServeWindow();
    burnScreen_.ProtectSources([this](const text::ProgramPath& file) {
        return compilation::IsSource(list_.ListFile(), file, [this] { context_.pump.Pump(); });
    });
}

ControllerContext Wizard::Controllers()
{
    return {.window = window_,
        .wizard = context_,
        .state = state_,
        .recorders = recorders_,
        .CommonDialog1 = CommonDialog1_,
        .burnScreen = burnScreen_,
        .navigation = navigation_,
        .handlers = handlers_,
        .closing = closing_};
}

bool Wizard::Form_Load(const shell::CommandString& command)
{
    bool isLoaded = false;
    handlers_.Run([&] { isLoaded = startUp_.Form_Load(command); }, AfterError::End);
    return isLoaded;
}

void Wizard::Refresh()
{
    window_.Band().ShowWayOut(wayOut_.Look());
    window_.Options().ShowDisc(ContentsOf(Plan()));
}

void Wizard::PrepareBurnPage(bool comes)
{
    if (!comes) {
        burns_.DropRemarksAhead();
        return;
    }
    window_.Burn().Disc().ShowPlan(Plan());
    burns_.ShowRemarksAhead();
}

DiscPlan Wizard::Plan() const
{
    return PlanOf(state_, list_.ListFile().Contents(), window_.List().DiscName());
}

bool Wizard::LoadTools(const text::ProgramPath& image)
{
    bool isLoaded = false;
    const auto load = [&] {
        startUp_.LoadTools();
        isLoaded = true;
    };
    handlers_.Run(load, AfterError::End);
    if (!image.IsEmpty()) {
        burnScreen_.OfferImage(image);
    }
    return isLoaded;
}

void Wizard::ServeWindow()
{
    window_.Band().Serve({.leave = handlers_.Click([this] { wayOut_.CorvaneButton1(); }),
        .next = handlers_.Click([this] { navigation_.NextButton(); }),
        .previous = handlers_.Click([this] { navigation_.PreviousButton(); }),
        .about = [this] { ShowFrmAbout(); },
        .selectTab = [this](Tab tab) { navigation_.Setselectedtab(tab); }});
    window_.Serve({.begin = [this] { Form_Activate(); },
        .mayClose = [this] { return closing_.MayClose(handlers_.IsTaskRunning()); },
        .pageChanged = [this] { wayOut_.OnPageChange(); }});
    handlers_.OnTaskEnd([this] { closing_.OnTaskEnd(handlers_.HasNewsToSee()); });
}

void Wizard::Form_Activate()
{
    if (!startUp_.Form_Activate()) {
        window_.close();
    }
}

void Wizard::ShowFrmAbout() { dialogs::frmAbout(burnScreen_, context_.clock, &window_).exec(); }

} // namespace velmora::wizard
