// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/IsoBurnJob.h"

#include "drive/PublishedCodes.h"
#include "terminal/arguments/PathChecks.h"
#include "terminal/console/FrenchText.h"
#include "terminal/disc/BurnChoices.h"
#include "terminal/disc/CopySeries.h"
#include "terminal/disc/DiscRun.h"
#include "terminal/disc/LoadedDisc.h"
#include "terminal/disc/NativePaths.h"
#include "writing/IsoBurnRun.h"

namespace velmora::terminal {

namespace {

/// Why the bytes of an image can't be burned: a French sentence with what to do, empty if nothing
/// is wrong.
std::string ProblemOfBytes(const IsoBurnRequest& request, imapi::Mastering& mastering)
{
    try {
        const imapi::IsoImageManagerRef manager = mastering.CreateIsoImageManager();
        manager->SetStream(
            mastering.CreateStreamOnFile(ProgramPathOf(request.file), imapi::FileStreamMode::Read));
        if (!request.isRaw) {
            manager->Validate();
        }
    } catch (const runtime::RuntimeError& failure) {
        const bool isNoImage = failure.Number() == drive::hresult::kNoKnownFileSystem;
        return HarmlessText(failure.Description().toStdString())
            + (isNoImage ? " L'option --raw grave ses octets tels quels." : "");
    }
    return {};
}

ExitCode BurnOnce(const IsoBurnRequest& request, const DiscContext& context, DiscRun& run)
{
    if (const std::string problem = ProblemOfImage(request.file); !problem.empty()) {
        return run.Fail(problem);
    }
    if (const std::string problem = ProblemOfBytes(request, context.mastering); !problem.empty()) {
        return run.Fail(problem);
    }
    if (!run.FindRecorder()) {
        return ExitCode::Failed;
    }
    if (request.terms.assent == Assent::Given) { // nobody inserts another disc
        const std::string problem = ProblemOfLoadedDisc(context, run.RecorderId());
        if (!problem.empty() && !context.stopRequested()) {
            return run.Fail(problem);
        }
    }
    run.Console().SetIsoFile(ProgramPathOf(request.file));
    BurnChoices choices({}, {}, TemporaryDirectory(), run.State());
    choices.SetTakesAnyBytes(request.isRaw);
    return run.Do(choices, [](const writing::RunContext& runContext) {
        return writing::IsoBurnRun(runContext).Run();
    });
}

} // namespace

ExitCode BurnIsoFile(const IsoBurnRequest& request, const DiscContext& context)
{
    DiscRun run(context, request.terms);
    return CopySeries(context, request.terms, run, DiscPrompt::OfRun).Run([&](std::uint32_t) {
        return BurnOnce(request, context, run);
    });
}

} // namespace velmora::terminal
