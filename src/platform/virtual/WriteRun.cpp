// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/WriteRun.h"

#include "drive/PublishedCodes.h"
#include "runtime/ResumeNext.h"

#include <algorithm>

namespace velmora::virtualdrive {

using drive::WriteAction;

namespace {

constexpr double kTickSeconds = 0.04;         // between two pieces of a paced write
constexpr double kWriteReportSeconds = 0.035; // under a tick, so that each tick has its report
constexpr double kKeepSeconds = 0.3;          // between two records of how far the write got
constexpr double kStepReportSeconds = 0.5;
constexpr std::chrono::milliseconds kLongestWait {20};
constexpr qint64 kBufferBytes = 4 << 20;

/// Does the drive report success although the sector isn't as it should be?
bool IsHidden(const Fault& fault)
{
    return fault.kind == FaultKind::Altered || fault.kind == FaultKind::Swallowed;
}

} // namespace

WriteRun::WriteRun(
    DriveContext& drive, const drive::WriteOrder& order, const drive::WriteReport& report)
    : drive_(drive)
    , order_(order)
    , report_(report)
{
}

void WriteRun::Run()
{
    Validate();
    if (plan_.formats) {
        Step(WriteAction::FormattingMedia, facts_.delays.format);
    }
    Step(WriteAction::InitializingHardware, facts_.delays.prepare);
    Step(WriteAction::CalibratingPower, facts_.delays.calibrate);
    WriteSectors();
    Finish();
}

void WriteRun::Validate()
{
    const Description& description = drive_.folder.Load();
    const Disc& disc = RequireReadyDisc(description, drive_.Now());
    facts_ = description.drive;
    sectorFile_ = disc.sectorFile;
    plan_ = PlanWrite(disc, facts_, order_.sectors, order_.closeDisc);
    sectorsPerSecond_ = FastestNotAbove(SpeedsOf(disc, facts_), order_.speed);
    file_.emplace(drive_.folder.SectorPath(sectorFile_), SectorFile::Mode::Write);
    Step(WriteAction::ValidatingMedia, 0);
}

void WriteRun::Step(WriteAction action, double seconds)
{
    const double end = drive_.clock.Timer() + (facts_.realTiming ? seconds : 0);
    drive_.pump.Pump();
    Look();
    Report(action);
    RequireNotStopped();
    while (drive_.clock.Timer() < end) {
        drive_.clock.Pause(std::min(end - drive_.clock.Timer(), kStepReportSeconds));
        Look();
        Report(action);
        RequireNotStopped();
    }
}

void WriteRun::WriteSectors()
{
    ChangeDisc([&](Disc& disc) { BeginWrite(disc, plan_); });
    const bool isBehindOthers = Look().disc->open.has_value();
    if (isBehindOthers) {
        file_->Cut(plan_.first); // what an interrupted write left after its last record
    }
    const QList<SectorBytes> swallowed = SectorsBeforeWrite();
    SectorWriter writer(order_.source, *file_, plan_.first);
    lastKept_ = drive_.clock.Timer();
    try {
        Report(WriteAction::WritingData);
        Feed(writer);
        KeepWritten(written_); // ending the session may take long, or fail
    } catch (...) {            // in any case the disc must record how far it got
        Settle(writer);
        taken_ = writer.TakenSectors();
        written_ = writer.WrittenSectors();
        runtime::ResumeNext([&] { KeepWritten(written_); });
        runtime::ResumeNext([&] { TellProgress(WriteAction::WritingData); });
        throw;
    }
    file_->WriteZeros(plan_.first + order_.sectors, plan_.end - plan_.first - order_.sectors);
    StrikeQuietly(swallowed);
}

/// Those that will be swallowed, as they are now.
QList<WriteRun::SectorBytes> WriteRun::SectorsBeforeWrite()
{
    QList<SectorBytes> sectors;
    for (const Fault& fault : Look().faults) {
        if (fault.kind == FaultKind::Swallowed && IsWritten(fault.sector)) {
            sectors.append({.sector = fault.sector, .bytes = BytesOf(fault.sector)});
        }
    }
    return sectors;
}

/// Damages the written sectors silently, as planned.
void WriteRun::StrikeQuietly(const QList<SectorBytes>& swallowed)
{
    for (const SectorBytes& before : swallowed) {
        file_->Write(before.sector, before.bytes);
    }
    for (const Fault& fault : Look().faults) {
        if (fault.kind == FaultKind::Altered && IsWritten(fault.sector)) {
            std::vector<std::byte> bytes = BytesOf(fault.sector);
            bytes[bytes.size() / 2] ^= std::byte {4};
            file_->Write(fault.sector, bytes);
        }
    }
    drive_.folder.Change([this](Description& description) {
        const QList<Fault> faults = description.faults;
        for (const Fault& fault : faults) {
            if (IsHidden(fault) && IsWritten(fault.sector)) {
                Spend(description, fault.kind, fault.sector);
            }
        }
    });
}

bool WriteRun::IsWritten(qint64 sector) const
{
    return sector >= plan_.first && sector < plan_.first + order_.sectors;
}

std::vector<std::byte> WriteRun::BytesOf(qint64 sector) const
{
    std::vector<std::byte> bytes(kSectorBytes);
    file_->Read(sector, bytes);
    return bytes;
}

void WriteRun::Feed(SectorWriter& writer)
{
    const double started = drive_.clock.Timer();
    while (true) {
        RequireNotStopped();
        const std::optional<Fault> fault = NextFault(Look(), written_);
        const qint64 limit = fault ? fault->sector - plan_.first : order_.sectors;
        writer.AllowUpTo(Allowed(started, limit));
        const bool isIdle = writer.WaitFor(kLongestWait);
        drive_.pump.Pump();
        Tell(writer);
        if (isIdle && written_ == order_.sectors) {
            Report(WriteAction::WritingData);
            RequireNotStopped();
            return;
        }
        if (isIdle && fault && written_ == limit) {
            Strike(*fault);
        }
        if (isIdle && facts_.realTiming) {
            drive_.clock.Pause(kTickSeconds);
        }
    }
}

void WriteRun::Settle(SectorWriter& writer)
{
    writer.AllowUpTo(0);
    bool isIdle = false;
    while (!isIdle) {
        isIdle = writer.IsAtRest(kLongestWait);
        drive_.pump.Pump();
    }
}

qint64 WriteRun::Allowed(double started, qint64 limit) const
{
    if (!facts_.realTiming) {
        return limit;
    }
    const double elapsed = drive_.clock.Timer() - started;
    return std::min(limit, static_cast<qint64>(elapsed * sectorsPerSecond_));
}

void WriteRun::Tell(const SectorWriter& writer)
{
    taken_ = writer.TakenSectors();
    written_ = writer.WrittenSectors();
    const double now = drive_.clock.Timer();
    if (now - lastReport_ >= kWriteReportSeconds) {
        Report(WriteAction::WritingData);
    }
    if (now - lastKept_ >= kKeepSeconds) {
        KeepWritten(written_);
        lastKept_ = now;
    }
}

/// A recording counts once the computer's disk holds it, whatever happens to the computer then.
void WriteRun::Finish()
{
    const double end = drive_.clock.Timer() + (facts_.realTiming ? facts_.delays.finish : 0);
    Report(WriteAction::Finalization); // nothing stops a drive that ends a session
    drive_.Await([this] { file_->Flush(); });
    while (drive_.clock.Timer() < end) {
        drive_.clock.Pause(std::min(end - drive_.clock.Timer(), kStepReportSeconds));
        Look();
        Report(WriteAction::Finalization);
    }
    ChangeDisc([&](Disc& disc) { EndWrite(disc, plan_); });
    drive_.Await([this] { drive_.folder.Flush(); });
    Report(WriteAction::Completed);
}

const Description& WriteRun::Look()
{
    const Description& now = drive_.folder.Load();
    RequireStillThere(now, sectorFile_);
    return now;
}

std::optional<Fault> WriteRun::NextFault(const Description& now, qint64 written) const
{
    std::optional<Fault> next;
    for (const Fault& fault : now.faults) {
        const bool isAhead = StrikesWrites(fault.kind) && !IsHidden(fault)
            && fault.sector >= plan_.first + written && fault.sector < plan_.first + order_.sectors;
        if (isAhead && (!next || fault.sector < next->sector)) {
            next = fault;
        }
    }
    return next;
}

void WriteRun::Strike(const Fault& fault)
{
    drive_.folder.Change([&](Description& description) {
        Spend(description, fault.kind, fault.sector);
        description.drive.unplugged |= fault.kind == FaultKind::Unplugged;
        if (fault.kind == FaultKind::Removed) {
            OpenTray(description);
        }
    });
    switch (fault.kind) {
    case FaultKind::LossOfStreaming:
        throw drive::PublishedError(drive::hresult::kLossOfStreaming);
    case FaultKind::Removed:
        throw drive::PublishedError(drive::hresult::kNoMedia);
    case FaultKind::Unplugged:
        throw drive::PublishedError(drive::hresult::kDeviceGone);
    default:
        throw drive::PublishedError(drive::hresult::kWriteError);
    }
}

void WriteRun::ChangeDisc(const std::function<void(Disc&)>& change)
{
    drive_.folder.Change([&](Description& description) {
        RequireStillThere(description, sectorFile_);
        change(*description.disc);
    });
}

void WriteRun::KeepWritten(qint64 sectors)
{
    // A disc taken out meanwhile still holds what was written.
    drive_.folder.Change([&](Description& description) {
        if (description.disc && description.disc->sectorFile == sectorFile_) {
            KeepProgress(*description.disc, sectors);
        }
    });
}

void WriteRun::Report(WriteAction action)
{
    lastReport_ = drive_.clock.Timer();
    isStopped_ = isStopped_ || !TellProgress(action);
}

/// @return false if a stop is requested
bool WriteRun::TellProgress(WriteAction action) const
{
    const drive::WriteProgress progress {.action = action,
        .startSector = plan_.first,
        .sectorCount = order_.sectors,
        .lastReadSector = plan_.first + taken_,
        .lastWrittenSector = plan_.first + written_,
        .bufferBytes = kBufferBytes,
        .bufferUsedBytes = (taken_ - written_) * kSectorBytes};
    return !report_ || report_(progress);
}

void WriteRun::RequireNotStopped() const
{
    if (isStopped_) {
        throw drive::PublishedError(drive::hresult::kCancelled);
    }
}

} // namespace velmora::virtualdrive
