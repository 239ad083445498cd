// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/image/ImageJob.h"

#include "digest/FileSums.h"
#include "image/source/LinkFollower.h"
#include "terminal/arguments/FailureText.h"
#include "terminal/arguments/PathChecks.h"
#include "terminal/arguments/VolumeNaming.h"
#include "terminal/console/FrenchText.h"
#include "terminal/image/ImageJson.h"
#include "terminal/image/ImageRemarks.h"
#include "terminal/image/ImageReport.h"
#include "text/Paths.h"

#include <array>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace velmora::terminal {

namespace {

image::TimeStamp ModifiedTime(const text::NativePath& path)
{
    struct stat status { };
    if (stat(path.CStr(), &status) != 0) {
        return {};
    }
    return {.seconds = status.st_mtim.tv_sec,
        .microseconds = static_cast<std::uint32_t>(status.st_mtim.tv_nsec / 1000)};
}

std::string FoundText(const image::ScanReport& found)
{
    return CountText(found.files, "fichier", "fichiers") + ", "
        + CountText(found.directories, "dossier", "dossiers") + LinksText(found.links) + ", "
        + SizeText(found.bytes);
}

std::string WrittenText(std::uint64_t bytes, std::chrono::milliseconds elapsed)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(elapsed);
    if (seconds.count() == 0) {
        return SizeText(bytes); // too short to tell a speed
    }
    return SizeText(bytes) + " en " + DurationText(seconds) + " (" + SpeedText(bytes, elapsed)
        + ")";
}

} // namespace

ImageJob::ImageJob(ImageRequest request, ImageContext context)
    : request_(std::move(request))
    , context_(std::move(context))
    , progress_(context_.screen, context_.clock)
{
}

ExitCode ImageJob::Run()
{
    constexpr std::array kSteps {&ImageJob::CheckPaths,
        &ImageJob::Scan,
        &ImageJob::CheckContent,
        &ImageJob::Plan,
        &ImageJob::CheckMedium,
        &ImageJob::Write};
    for (const auto step : kSteps) {
        if (const ExitCode code = (this->*step)(); code != ExitCode::Done) {
            return code;
        }
    }
    return ShowOutcome();
}

ExitCode ImageJob::CheckPaths()
{
    if (const auto problem = ProblemOfFolder(request_.folder); !problem.empty()) {
        return Fail(problem);
    }
    if (const auto problem = ProblemOfDestination(); !problem.empty()) {
        return Fail(problem);
    }
    if (request_.volumeName.empty()) {
        request_.volumeName = VolumeNameOfFolder(request_.folder);
    }
    request_.options.volumeName = request_.volumeName;
    return ExitCode::Done;
}

/// Why the image can't be written to its place; empty if it can.
std::string ImageJob::ProblemOfDestination()
{
    if (!request_.IsForStandardOutput()) {
        std::string problem = ProblemOfOutput(request_.output, request_.replacing);
        request_.output = ResolvedOutput(request_.output);
        return problem;
    }
    return isatty(context_.standardOutput) != 0
        ? "Un terminal n'est pas fait pour une image : redirigez la sortie, ou donnez un fichier à "
          "-o."
        : "";
}

ExitCode ImageJob::Scan()
{
    progress_.Begin(JobPhase::ReadingFolder, "Lecture du dossier");
    tree_ = std::make_shared<image::SourceTree>(ModifiedTime(request_.folder));
    image::ScanOptions options {.threads = request_.options.threads};
    options.progress = [this](const image::ScanProgress& progress) {
        progress_.ShowEntries(progress.entries);
        return MayGoOn();
    };
    auto found = ScanFolder(
        *tree_, image::SourceTree::kRoot, request_.folder.Bytes(), image::IncludeBase::No, options);
    if (!found) {
        return Fail(found.Failure());
    }
    found_ = std::move(*found);
    if (request_.links == LinkChoice::Follow) {
        image::LinkFollower follower(request_.folder.Bytes());
        follower.Know(*tree_, image::SourceTree::kRoot);
        const auto followed = follower.Follow(*tree_, image::SourceTree::kRoot, found_, options);
        if (!followed) {
            return Fail(followed.Failure());
        }
    }
    progress_.End(FoundText(found_));
    return ExitCode::Done;
}

ExitCode ImageJob::CheckContent()
{
    if (found_.files == 0 && found_.directories == 0 && found_.links == 0) {
        for (const auto& error : found_.leftOut) {
            const JobRemark remark = RemarkOf(error);
            context_.screen.Notice(remark.text);
            context_.screen.Tell(remark);
        }
        return Fail("Le dossier " + Quoted(request_.folder.Bytes())
            + (found_.leftOut.empty() ? " est vide" : " ne contient rien qui puisse être pris")
            + " : mettez-y ce qui doit aller sur le disque.");
    }
    if (!request_.IsForStandardOutput() && IsSource(*tree_, request_.output)) {
        return Fail("L'image " + Quoted(request_.output.Bytes())
            + " fait partie du dossier à mettre dans l'image : déplacez-la, supprimez-la ou "
              "choisissez un "
              "autre nom.");
    }
    return ExitCode::Done;
}

ExitCode ImageJob::Plan()
{
    if (!MayGoOn()) {
        return Stop();
    }
    progress_.Begin(JobPhase::PlanningImage, "Préparation de l'image");
    if (request_.recordsSums) {
        request_.options.sums = std::make_shared<digest::FileSums>();
        sums_ = image::AddSums(tree_, request_.options);
    }
    auto plan = image::ImagePlan::Create(tree_, request_.options);
    if (!plan) {
        return Fail(plan.Failure());
    }
    plan_ = std::move(*plan);
    progress_.End(SizeText(plan_->Bytes()));
    return MayGoOn() ? ExitCode::Done : Stop();
}

ExitCode ImageJob::CheckMedium()
{
    const Medium* medium = request_.medium;
    if (medium == nullptr) {
        return ExitCode::Done;
    }
    if (plan_->Sectors() <= medium->sectors) {
        WarnOfFormattedDisc(*medium);
        return ExitCode::Done;
    }
    const Medium* larger = SmallestMedium(plan_->Sectors());
    return Fail("L'image (" + SizeText(plan_->Bytes()) + ") ne tient pas sur le disque, "
        + std::string(medium->name) + " ("
        + SizeText(std::uint64_t {medium->sectors} * image::kSectorSize)
        + ") : retirez des fichiers du dossier"
        + (larger ? " ou choisissez --medium " + std::string(larger->option) : "")
        + ". Rien n'a été écrit.");
}

/// A rewritable disc reserves sectors to replace those that wear out.
void ImageJob::WarnOfFormattedDisc(const Medium& medium)
{
    if (medium.formattedSectors != 0 && plan_->Sectors() > medium.formattedSectors) {
        Warn(context_.screen,
            RemarkKind::RewritableTooSmall,
            "Attention : l'image (" + SizeText(plan_->Bytes())
                + ") tient sur un BD-R, mais pas sur un BD-RE de même taille, qui n'a que "
                + SizeText(std::uint64_t {medium.formattedSectors} * image::kSectorSize)
                + " une fois formaté.");
    }
}

ExitCode ImageJob::Write()
{
    progress_.Begin(JobPhase::WritingImage, "Écriture de l'image");
    image::CopyOptions options {.threads = request_.options.threads};
    options.progress = [this](std::uint64_t done) {
        progress_.ShowBytes(done, plan_->Bytes());
        return MayGoOn();
    };
    options.partialFile = context_.partialFile;
    const auto written = request_.IsForStandardOutput()
        ? StreamTo(*plan_, context_.standardOutput, options)
        : WriteImageFile(*plan_, request_.output.Bytes(), options);
    if (context_.partialFile) {
        context_.partialFile({});
    }
    if (!written) {
        return Fail(written.Failure());
    }
    written_ = *written;
    progress_.End(WrittenText(plan_->Bytes(), progress_.Elapsed()));
    return ExitCode::Done;
}

ExitCode ImageJob::ShowOutcome()
{
    Losses losses = LossesOf(found_.leftOut, *plan_);
    losses.changedFiles = written_.changedFiles;
    losses.keepsOtherSums = sums_ == image::SumsEnd::KeptOther;
    ShowResult(context_.screen, request_, *plan_);
    if (losses.keepsOtherSums) {
        Warn(context_.screen, RemarkKind::OtherSums, OtherSumsText());
    }
    ShowLosses(context_.screen, request_.detail, losses);
    context_.screen.Tell(JobReport {[&] { return ImageObject(request_, *plan_, losses); }});
    const bool isWhole = losses.missing.empty() && losses.changedFiles.empty();
    return isWhole ? ExitCode::Done : ExitCode::Incomplete;
}

ExitCode ImageJob::Fail(const std::string& text)
{
    progress_.Clear();
    return terminal::Fail(context_.screen, text);
}

ExitCode ImageJob::Fail(const image::Error& error)
{
    if (error.kind == image::ErrorKind::Cancelled) {
        return Stop();
    }
    return Fail(FailureText(error));
}

ExitCode ImageJob::Stop()
{
    progress_.Clear();
    Warn(context_.screen,
        RemarkKind::Stopped,
        "Arrêté à votre demande : aucune image n'a été faite.");
    return ExitCode::Stopped;
}

bool ImageJob::MayGoOn() const { return !context_.stopRequested || !context_.stopRequested(); }

} // namespace velmora::terminal
