// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/check/CheckJob.h"

#include "drive/SectorSize.h"
#include "terminal/arguments/PathChecks.h"
#include "terminal/check/BurnsJob.h"
#include "terminal/check/CheckWords.h"
#include "terminal/check/RecordCheck.h"
#include "terminal/console/FrenchText.h"
#include "terminal/drives/DriveWords.h"
#include "terminal/drives/RecorderChoice.h"
#include "unicode/ReplaceFile.h"

#include <QScopeGuard>

#include <algorithm>
#include <fcntl.h>
#include <utility>

namespace velmora::terminal {

namespace {

constexpr const char* kSums = "SHA256SUMS";

std::string NameOf(int number, const records::BurnRecord& record)
{
    return "la gravure n° " + std::to_string(number) + " du " + MomentText(record);
}

} // namespace

CheckJob::CheckJob(CheckRequest request, CheckContext context)
    : request_(std::move(request))
    , context_(std::move(context))
    , progress_(context_.screen, context_.steadyClock)
    , show_([this](std::uint64_t done, std::uint64_t total) { progress_.ShowBytes(done, total); })
{
}

ExitCode CheckJob::RunOnImage()
{
    unicode::FileDescriptor file(::open(request_.image.CStr(), O_RDONLY | O_CLOEXEC));
    if (!file) {
        return Fail(context_.screen,
            "l'image " + Quoted(request_.image.Bytes()) + " n'a pas pu être ouverte.");
    }
    ImageSectors sectors(std::move(file), context_.stopRequested);
    return Check(sectors, 0);
}

ExitCode CheckJob::RunOnDisc(imapi::Mastering& mastering, runtime::Clock& clock)
{
    const auto found = SurveyRecorders(mastering);
    const auto place = ChooseRecorder(request_.recorder, found, context_.screen);
    if (!place) {
        return ExitCode::Failed;
    }
    try {
        const imapi::RecorderRef recorder = mastering.CreateDiscRecorder();
        recorder->InitializeDiscRecorder(found[*place].id);
        recorder->AcquireExclusiveAccess(true, QStringLiteral("velmora-cli"));
        const auto letGo = qScopeGuard([&recorder] { recorder->ReleaseExclusiveAccess(); });
        return CheckDrive(recorder, clock);
    } catch (const runtime::RuntimeError& failure) {
        progress_.Clear();
        return Fail(context_.screen, DriveFailureText(failure), failure.Number());
    }
}

ExitCode CheckJob::CheckDrive(const imapi::RecorderRef& recorder, runtime::Clock& clock)
{
    mastering::RecordingReader reader(
        recorder->Drive(),
        clock,
        [this](qint64) { return !context_.stopRequested(); },
        mastering::WhenUnreadable::GoOn);
    if (recorder->Drive().LookAnew().state == drive::DiscState::None) {
        return FailWithoutDisc(context_.screen);
    }
    reader.TakeDisc();
    const auto& sessions = recorder->Drive().Look().sessions;
    DriveSectors sectors(reader);
    return Check(
        sectors, sessions.isEmpty() ? 0 : static_cast<std::uint32_t>(sessions.back().firstSector));
}

ExitCode CheckJob::Check(SectorSource& source, std::uint32_t session)
{
    progress_.Begin(JobPhase::Checking, "Contrôle du disque");
    const std::optional<discfiles::Listing> listing = discfiles::ListFiles(
        [&source](std::uint32_t first, std::span<std::byte> out) {
            return source.Read(first, out) == mastering::ReadEnd::Read;
        },
        session);
    std::optional<CheckFindings> findings;
    if (request_.record != 0) {
        findings = CheckByChosenRecord(source, listing ? listing->volume : "");
    } else if (!request_.folder.IsEmpty() && listing) {
        if (const std::string problem = ProblemOfFolder(request_.folder); !problem.empty()) {
            progress_.Clear();
            return Fail(context_.screen, problem);
        }
        basis_ = "le dossier " + Quoted(request_.folder.Bytes());
        FolderProofs proofs(request_.folder);
        CarefulReader reader(source);
        findings = CheckFiles(*listing, proofs, reader, show_, kSums);
    } else if (request_.folder.IsEmpty()) {
        findings = CheckByWhatIsFound(source, listing);
    }
    progress_.Clear();
    if (findings) {
        return Tell(*findings);
    }
    if (context_.stopRequested()) {
        return Tell({.isStopped = true});
    }
    TellNothingToCompare();
    return ExitCode::Incomplete;
}

void CheckJob::TellNothingToCompare()
{
    if (!problemOfRecord_.empty()) {
        Fail(context_.screen, problemOfRecord_);
        return;
    }
    Warn(context_.screen,
        RemarkKind::NothingToCompare,
        "Rien à quoi comparer ce disque : il ne porte pas de liste SHA256SUMS lisible, et aucune "
        "gravure gardée en mémoire n'est la sienne.");
}

std::optional<CheckFindings> CheckJob::CheckByWhatIsFound(
    SectorSource& source, const std::optional<discfiles::Listing>& listing)
{
    CarefulReader reader(source);
    if (listing) {
        if (auto findings = CheckBySums(*listing, reader)) {
            return findings;
        }
    }
    const auto number = FindRecord(context_.records, source, listing ? listing->volume : "");
    const auto record = number ? context_.records.Read(*number) : std::nullopt;
    return record ? std::optional(CheckByRecord(*number, *record, reader)) : std::nullopt;
}

/// Nothing if the disc has no such list.
std::optional<CheckFindings> CheckJob::CheckBySums(
    const discfiles::Listing& listing, CarefulReader& reader)
{
    const auto list = std::ranges::find(listing.files, kSums, &discfiles::DiscFile::path);
    if (list == listing.files.end()) {
        return std::nullopt;
    }
    SumProofs proofs(ContentOf(*list, reader));
    if (proofs.IsEmpty() || reader.IsStopped()) {
        return std::nullopt;
    }
    basis_ = "la liste SHA256SUMS du disque";
    const bool isListHurt = reader.UnreadableCount() > 0;
    CheckFindings findings = CheckFiles(listing, proofs, reader, show_, kSums);
    if (isListHurt) {
        findings.faultyFiles.push_back({kSums, FileFault::Unreadable});
    }
    return findings;
}

/// Nothing without such a record, or on another disc: to call that one damaged would be wrong.
std::optional<CheckFindings> CheckJob::CheckByChosenRecord(
    SectorSource& source, const std::string& volume)
{
    const int number = request_.record;
    const std::optional<records::BurnRecord> record = context_.records.Read(number);
    if (!record) {
        problemOfRecord_ = "il n'y a pas de gravure n° " + std::to_string(number)
            + " : « velmora-cli burns » en donne la liste.";
        return std::nullopt;
    }
    if (IsOtherDisc(*record, context_.records, source, volume)) {
        problemOfRecord_ = "ce disque, " + Quoted(volume) + ", n'est pas celui de "
            + NameOf(number, *record) + ", " + Quoted(record->volume.toStdString()) + ".";
        return std::nullopt;
    }
    CarefulReader reader(source);
    return CheckByRecord(number, *record, reader);
}

CheckFindings CheckJob::CheckByRecord(
    int number, const records::BurnRecord& record, CarefulReader& reader)
{
    basis_ = NameOf(number, record);
    return terminal::CheckByRecord(record, reader, show_);
}

ExitCode CheckJob::Tell(const CheckFindings& findings)
{
    const ExitCode code = TellFindings(context_.screen, basis_, findings);
    if (!request_.report.IsEmpty() && !WriteReport(findings)) {
        return Fail(context_.screen,
            "le rapport " + Quoted(request_.report.Bytes()) + " n'a pas pu être écrit.");
    }
    return code;
}

bool CheckJob::WriteReport(const CheckFindings& findings)
{
    return unicode::ReplaceFile(request_.report.Bytes(), FindingsJson(basis_, findings));
}

} // namespace velmora::terminal
