// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controllers/ConfigurationController.h"

#include "desktop/AccessibleWidgets.h"
#include "recorder/forms/FrmBurner.h"
#include "shell/forms/FrmTemp.h"
#include "wizard/FrmMain.h"
#include "wizard/controllers/BurnController.h"
#include "wizard/pages/ConfigurationPage.h"
#include "wizard/pages/FormatPage.h"
#include "wizard/rules/RunNotice.h"
#include "writing/EraseRun.h"

#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

ConfigurationController::ConfigurationController(
    const ControllerContext& context, BurnController& burns)
    : context_(context)
    , eraseScreen_(context.window, context.wizard.pump, context.closing)
{
    ServePage(burns);
}

void ConfigurationController::ServePage(BurnController& burns)
{
    Handlers& handlers = context_.handlers;
    context_.window.Configuration().Serve(
        {.burnImage = handlers.AttendedRun(
             u"Velmora grave un disque"_s, [&burns] { return burns.BurnImage(); }),
            // An error that an erase has no message for ends the program.
            .erase = handlers.AttendedRun(
                u"Velmora efface un disque"_s, [this] { return Erase(); }, AfterError::End),
            .chooseTemporaryDirectory = handlers.Click([this] { ShowFrmTemp(); }),
            .describeRecorder = handlers.Click([this] { ShowFrmBurner(); })});
}

RunOutcome ConfigurationController::Erase()
{
    const writing::RunReport report = writing::EraseRun(
        eraseScreen_, context_.recorders, context_.wizard.mastering, DataEraser_)
                                          .Run();
    const QString cause = CauseOfErase(report);
    RunNotice notice = NoticeOfErase(report);
    context_.window.Configuration().ShowEraseOutcome(notice, cause);
    if (!cause.isEmpty()) {
        desktop::Announce(context_.window.Configuration(), cause);
    }
    return {std::move(notice), MustBeSeen(report)};
}

void ConfigurationController::ShowFrmTemp()
{
    shell::FrmTemp form(shell::TemporaryChoice(), &context_.window);
    form.exec();
    if (!form.TempDirectory().IsEmpty()) {
        context_.window.Configuration().SetTemporaryDirectory(form.TempDirectory());
    }
}

void ConfigurationController::ShowFrmBurner()
{
    const qint16 selected = context_.window.Formats().SelectedRecorder();
    recorder::FrmBurner(context_.recorders, selected, &context_.window).exec();
}

} // namespace velmora::wizard
