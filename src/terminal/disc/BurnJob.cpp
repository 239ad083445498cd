// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/BurnJob.h"

#include "compilation/Compilation.h"
#include "compilation/IconSource.h"
#include "compilation/NativeSourceFiles.h"
#include "drive/DiscKinds.h"
#include "drive/SectorSize.h"
#include "runtime/ResumeNext.h"
#include "terminal/arguments/PathChecks.h"
#include "terminal/arguments/VolumeNaming.h"
#include "terminal/console/FrenchText.h"
#include "terminal/disc/BurnChoices.h"
#include "terminal/disc/CopySeries.h"
#include "terminal/disc/LoadedDisc.h"
#include "terminal/disc/NativePaths.h"
#include "terminal/drives/DiscRefusal.h"
#include "terminal/drives/DriveWords.h"
#include "writing/BurnRun.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmora::terminal {

namespace {

/// An invisible list needs no pictures.
class NoIcons final : public compilation::IconSource {
public:
    qint32 ItemIndex(const text::ProgramPath&, bool) override { return 0; }
    void AddPicture(const QString&, const text::ProgramPath&) override { }
};

} // namespace

BurnJob::BurnJob(BurnRequest request, const DiscContext& context)
    : request_(std::move(request))
    , context_(context)
    , run_(context, request_.terms, request_.content.detail)
    , capacity_(run_.State())
{
}

/// Further copies get the list of the first one, but their disc may have less room.
ExitCode BurnJob::Run()
{
    constexpr std::array kFirst {&BurnJob::CheckFolder,
        &BurnJob::FindRecorder,
        &BurnJob::ChooseDisc,
        &BurnJob::FillList,
        &BurnJob::CheckRoom};
    constexpr std::array kNext {&BurnJob::ChooseDisc, &BurnJob::CheckRoom};
    const bool asksForDisc = request_.content.medium != nullptr;
    CopySeries copies(
        context_, request_.terms, run_, asksForDisc ? DiscPrompt::OfRun : DiscPrompt::OfSeries);
    return copies.Run(
        [&](std::uint32_t number) { return number == 1 ? BurnAfter(kFirst) : BurnAfter(kNext); });
}

ExitCode BurnJob::BurnAfter(std::span<const Step> steps)
{
    for (const Step step : steps) {
        const ExitCode code = (this->*step)();
        if (context_.stopRequested()) {
            return Stop();
        }
        if (code != ExitCode::Done) {
            return code;
        }
    }
    return Burn();
}

ExitCode BurnJob::CheckFolder()
{
    const std::string problem = ProblemOfFolder(request_.folder);
    return problem.empty() ? ExitCode::Done : Fail(problem);
}

ExitCode BurnJob::FindRecorder() { return run_.FindRecorder() ? ExitCode::Done : ExitCode::Failed; }

ExitCode BurnJob::ChooseDisc()
{
    ApplyMedium(request_.content.medium, run_.State());
    if (request_.content.medium == nullptr) {
        return TakeDisc();
    }
    if (request_.terms.assent == Assent::Asked) {
        return ExitCode::Done; // the run asks for the disc
    }
    const std::string problem = ProblemOfLoadedDisc(context_, run_.RecorderId());
    return problem.empty() ? ExitCode::Done : Fail(problem);
}

/// The disc in the drive, whatever its kind.
ExitCode BurnJob::TakeDisc()
{
    try {
        const MediaLook look = PullInAndLook(context_, run_.RecorderId());
        if (!look.hasDisc) {
            return FailWithoutDisc(context_.screen);
        }
        run_.State().MediaCapacity = static_cast<double>(look.freeSectors) * drive::kSectorBytes;
        const std::string problem = WhyNotBurnable(look);
        return problem.empty() ? ExitCode::Done : Fail(problem);
    } catch (const runtime::RuntimeError& failure) {
        return Fail(DriveFailureText(failure));
    }
}

ExitCode BurnJob::FillList()
{
    compilation::NativeSourceFiles files([this] { return !context_.stopRequested(); });
    files.TakeHidden();
    NoIcons icons;
    BurnConsole& console = run_.Console();
    compilation::Compilation compilation(run_.State(),
        run_.List(),
        capacity_,
        {.files = files, .icons = icons, .messages = console, .pointer = console});
    context_.screen.Notice("Lecture du dossier…");
    context_.screen.Tell(PhaseProgress {JobPhase::ReadingFolder});
    run_.State().SourceFolder = ProgramPathOf(request_.folder);
    if (request_.content.links == LinkChoice::Follow) {
        // What can't be read is reported when the list is filled.
        runtime::ResumeNext([&] { files.FollowLinks(run_.State().SourceFolder); });
    }
    if (!compilation.LoadFolder(run_.State().SourceFolder)) {
        return Fail("le dossier " + Quoted(request_.folder.Bytes()) + " n'a pas pu être pris.");
    }
    return ExitCode::Done;
}

ExitCode BurnJob::CheckRoom()
{
    const Medium* medium = request_.content.medium;
    if (medium != nullptr && medium->kind == MediumKind::Cd) {
        TakeRoomOfLongerCd();
    }
    return capacity_.CheckThatItFits(run_.Console()) ? ExitCode::Done : Fail("rien n'a été gravé.");
}

/// A CD in the drive may hold more than usual ones. If the drive doesn't answer, the run asks it
/// again.
void BurnJob::TakeRoomOfLongerCd()
{
    double& capacity = run_.State().MediaCapacity;
    if (run_.State().TotalSizeBytes <= capacity) {
        return;
    }
    runtime::ResumeNext([&] {
        const MediaLook look = LookAtLoadedDisc(context_, run_.RecorderId());
        const drive::DiscKind* kind = drive::FindDiscKind(look.type);
        if (kind != nullptr && kind->family == drive::DiscFamily::Cd) {
            capacity
                = std::max(capacity, static_cast<double>(look.freeSectors) * drive::kSectorBytes);
        }
    });
}

ExitCode BurnJob::Burn()
{
    const std::string name = request_.content.volumeName.empty()
        ? VolumeNameOfFolder(request_.folder)
        : request_.content.volumeName;
    BurnChoices choices(request_, QString::fromStdString(name), TemporaryDirectory(), run_.State());
    return run_.Do(choices, [](const writing::RunContext& context) {
        return writing::BurnRun(context).Run(writing::BurnTarget::Disc);
    });
}

/// A failure caused by a stop needs no message besides the stop's.
ExitCode BurnJob::Fail(const std::string& text)
{
    return context_.stopRequested() ? ExitCode::Stopped : run_.Fail(text);
}

ExitCode BurnJob::Stop()
{
    Warn(context_.screen, RemarkKind::Stopped, "Arrêté à votre demande : rien n'a été gravé.");
    return ExitCode::Stopped;
}

} // namespace velmora::terminal
