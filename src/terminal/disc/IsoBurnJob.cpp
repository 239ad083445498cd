// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/IsoBurnJob.h"

#include "terminal/arguments/PathChecks.h"
#include "terminal/disc/BurnChoices.h"
#include "terminal/disc/DiscRun.h"
#include "terminal/disc/NativePaths.h"
#include "writing/IsoBurnRun.h"

namespace velmora::terminal {

ExitCode BurnIsoFile(const IsoBurnRequest& request, const DiscContext& context)
{
    DiscRun run(context, request.terms);
    if (const std::string problem = ProblemOfImage(request.file); !problem.empty()) {
        return run.Fail(problem);
    }
    if (!run.FindRecorder()) {
        return ExitCode::Failed;
    }
    run.Console().SetIsoFile(ProgramPathOf(request.file));
    BurnChoices choices({}, {}, TemporaryDirectory(), run.State());
    return run.Do(choices, [](const writing::RunContext& runContext) {
        return writing::IsoBurnRun(runContext).Run();
    });
}

} // namespace velmora::terminal
