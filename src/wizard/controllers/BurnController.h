// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wizard/Handlers.h"
#include "wizard/controllers/ControllerContext.h"
#include "wizard/rules/Remarks.h"
#include "wizard/screens/BurnOptionsView.h"
#include "writing/BurnRun.h"
#include "writing/ReadingDisplay.h"
#include "writing/RunContext.h"
#include "writing/WritingDisplay.h"

#include <vector>

namespace velmora::compilation {
class CompilationList;
}

namespace velmora::wizard {

/// The runs from the compilation to a disc or an image and from an ISO image to a disc, with what
/// persists between runs, and the handlers of the burn page.
class BurnController {
public:
    /// @param ListFile  must outlive the controller
    BurnController(const ControllerContext& context, const compilation::CompilationList& ListFile);
    ~BurnController();
    BurnController(const BurnController&) = delete;
    BurnController& operator=(const BurnController&) = delete;

    /// Computes in the background which remarks a burn would make now, and shows them.
    void ShowRemarksAhead();
    /// Drops them.
    void DropRemarksAhead();

    /// Asks for an ISO image and burns it.
    /// @return how it ended, in words
    RunOutcome BurnImage();

private:
    void ServePage();
    RunOutcome Burn(writing::BurnTarget target);
    /// Shows how a run ended. @return the same in words
    RunOutcome ShowEnd(const writing::RunReport& report) const;
    void SaveLog();
    void ShowRemarks(std::vector<Remark> remarks);
    void OpenRemarks();
    writing::RunContext RunsContext();

    ControllerContext context_;
    const compilation::CompilationList& ListFile_;
    BurnOptionsView options_;
    writing::ReadingDisplay reading_;
    writing::WritingDisplay progress_;
    std::vector<Remark> remarks_;
};

} // namespace velmora::wizard
