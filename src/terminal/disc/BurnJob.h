// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compilation/CapacityAccount.h"
#include "terminal/arguments/DiscRequest.h"
#include "terminal/console/ExitCode.h"
#include "terminal/disc/DiscContext.h"
#include "terminal/disc/DiscRun.h"

#include <span>
#include <string>

namespace velmora::terminal {

/// Burns one folder, to as many discs as requested: checks, recorder, list, disc, run, comparison.
/// Failures are reported on the screen.
class BurnJob {
public:
    BurnJob(BurnRequest request, const DiscContext& context);

    ExitCode Run();

private:
    using Step = ExitCode (BurnJob::*)();

    ExitCode BurnAfter(std::span<const Step> steps);
    ExitCode CheckFolder();
    ExitCode FindRecorder();
    ExitCode FillList();
    ExitCode ChooseDisc();
    ExitCode CheckRoom();
    void TakeRoomOfLongerCd();
    ExitCode Burn();
    ExitCode Fail(const std::string& text);
    ExitCode Stop();

    ExitCode TakeDisc();

    BurnRequest request_;
    const DiscContext& context_;
    DiscRun run_;
    compilation::CapacityAccount capacity_;
};

} // namespace velmora::terminal
