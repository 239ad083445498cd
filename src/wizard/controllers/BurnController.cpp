// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "wizard/controllers/BurnController.h"

#include "desktop/AccessibleWidgets.h"
#include "wizard/FrmMain.h"
#include "wizard/SideWork.h"
#include "wizard/pages/BurnPage.h"
#include "wizard/pages/DiscPanel.h"
#include "wizard/pages/RemarksWindow.h"
#include "wizard/rules/RemarksAhead.h"
#include "wizard/rules/RunNotice.h"
#include "wizard/rules/SaveText.h"
#include "wizard/screens/BurnScreenView.h"
#include "writing/ImageDraft.h"
#include "writing/IsoBurnRun.h"

#include <utility>

namespace velmora::wizard {

using namespace Qt::StringLiterals;

BurnController::BurnController(
    const ControllerContext& context, const compilation::CompilationList& ListFile)
    : context_(context)
    , ListFile_(ListFile)
    , options_(context.window)
    , reading_(context.burnScreen, context.state)
    , progress_(context.burnScreen, context.state, context.wizard.companion)
{
    ServePage();
}

BurnController::~BurnController() { DropRemarksAhead(); }

void BurnController::ServePage()
{
    Handlers& handlers = context_.handlers;
    writing::StopCompanion& companion = context_.wizard.companion;
    context_.window.Burn().Serve({.burnDisc = handlers.AttendedRun(u"Velmora grave un disque"_s,
                                      [this] { return Burn(writing::BurnTarget::Disc); }),
        .makeImage = handlers.AttendedRun(
            u"Velmora crée une image ISO"_s, [this] { return Burn(writing::BurnTarget::IsoFile); }),
        .stop
        = handlers.Click([this] { writing::RequestStop(context_.burnScreen, context_.state); }),
        .showRemarks = [this] { OpenRemarks(); },
        .saveLog = handlers.Click([this] { SaveLog(); }),
        .startCompanion = handlers.Click([&companion] { companion.Start(); }),
        .endCompanion = handlers.Click([&companion] { companion.Finish(); })});
}

RunOutcome BurnController::Burn(writing::BurnTarget target)
{
    DropRemarksAhead();
    const writing::RunReport report = writing::BurnRun(RunsContext()).Run(target);
    if (report.isLaidOut) {
        ShowRemarks(RemarksOf(report));
    } else {
        ShowRemarksAhead();
    }
    return ShowEnd(report);
}

RunOutcome BurnController::BurnImage()
{
    DropRemarksAhead();
    ShowRemarks({});
    const writing::RunReport report = writing::IsoBurnRun(RunsContext()).Run();
    ShowRemarks(RemarksOf(report));
    return ShowEnd(report);
}

void BurnController::ShowRemarksAhead()
{
    context_.window.Burn().ShowThatRemarksCome();
    RemarksQuestion question {.draft = writing::DraftOf(options_, context_.state, ListFile_),
        .hiddenEntries = writing::HiddenEntriesLeftOut(context_.state, ListFile_)};
    const imapi::IImageForecast& forecast = context_.wizard.forecast;
    context_.wizard.sideWork.Begin([this, &forecast, question = std::move(question)](
                                       const std::stop_token& stop) {
        return [this, remarks = RemarksAhead(question, forecast, stop)] { ShowRemarks(remarks); };
    });
}

void BurnController::DropRemarksAhead() { context_.wizard.sideWork.Drop(); }

void BurnController::ShowRemarks(std::vector<Remark> remarks)
{
    remarks_ = std::move(remarks);
    context_.window.Burn().ShowRemarks(remarks_.size(), HasLoss(remarks_));
}

void BurnController::OpenRemarks()
{
    const SavedText text {.title = u"Enregistrer les remarques"_s,
        .fileName = u"remarques.txt"_s,
        .text = TextOf(remarks_)};
    const auto save = [&] { SaveText(context_.wizard.chooser, context_.burnScreen, text); };
    RemarksWindow(text.text, save, &context_.window).exec();
}

RunOutcome BurnController::ShowEnd(const writing::RunReport& report) const
{
    RunNotice notice = NoticeOfBurn(report);
    BurnPage& page = context_.window.Burn();
    page.ShowOutcome(notice);
    page.Disc().ShowHurtPlaces(report.comparison.places);
    // The status line has reported a plain success.
    if (notice.outcome != Outcome::None && notice.outcome != Outcome::Done) {
        desktop::Announce(page, notice.title + u". "_s + notice.words);
    }
    return {std::move(notice), MustBeSeen(report)};
}

void BurnController::SaveLog()
{
    SaveText(context_.wizard.chooser,
        context_.burnScreen,
        {.title = u"Enregistrer le journal de la gravure"_s,
            .fileName = u"velmora.txt"_s,
            .text = QString(context_.burnScreen.Log()).replace(u"\r\n"_s, u"\n"_s)});
}

writing::RunContext BurnController::RunsContext()
{
    return {.screen = context_.burnScreen,
        .options = options_,
        .state = context_.state,
        .ListFile = ListFile_,
        .mastering = context_.wizard.mastering,
        .clock = context_.wizard.clock,
        .reading = reading_,
        .recorders = context_.recorders,
        .companion = context_.wizard.companion,
        .progress = progress_};
}

} // namespace velmora::wizard
