// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/VirtualErase.h"

#include "drive/PublishedCodes.h"
#include "drive/VolumeStart.h"
#include "runtime/ResumeNext.h"
#include "virtual/SectorFile.h"

#include <algorithm>

namespace velmora::virtualdrive {

namespace {

constexpr double kEraseReportSeconds = 0.5;

bool IsWipedInPlace(const Disc& disc, bool full)
{
    return disc.medium->recording == Recording::Overwritable && !full
        && disc.medium->formatting != Formatting::BeforeEachWrite;
}

double SecondsFor(const Disc& disc, const DriveDescription& drive, bool full)
{
    if (!drive.realTiming) {
        return 0;
    }
    const QList<quint32> speeds = SpeedsOf(disc, drive);
    if (!full || speeds.isEmpty()) {
        return drive.delays.quickErase;
    }
    return static_cast<double>(disc.capacity) / speeds.first();
}

void TakeTime(DriveContext& drive,
    double seconds,
    const QString& sectorFile,
    const drive::EraseReport& report)
{
    const double start = drive.clock.Timer();
    const auto estimate = std::max(1, static_cast<qint32>(seconds));
    const auto tell = [&] {
        const auto elapsed = static_cast<qint32>(drive.clock.Timer() - start);
        if (report && !report(elapsed, std::max(elapsed, estimate))) {
            throw drive::PublishedError(drive::hresult::kCancelled);
        }
    };
    drive.pump.Pump();
    tell();
    const double end = start + seconds;
    while (drive.clock.Timer() < end) {
        drive.clock.Pause(std::min(end - drive.clock.Timer(), kEraseReportSeconds));
        RequireStillThere(drive.folder.Load(), sectorFile);
        tell();
    }
}

void Wipe(DriveContext& drive, const Disc& disc)
{
    SectorFile file(drive.folder.SectorPath(disc.sectorFile), SectorFile::Mode::Write);
    file.WriteZeros(0, drive::kStartSectors);
    file.WriteZeros(drive::kAnchorSector, 1);
    drive.Await([&file] { file.Flush(); });
}

} // namespace

void RunErase(DriveContext& drive, bool full, const drive::EraseReport& report)
{
    const Description description = drive.folder.Load();
    const Disc disc = RequireReadyDisc(description, drive.Now());
    RequireErasable(disc, description.drive);
    if (FindFault(description, FaultKind::EraseFails) != nullptr) {
        drive.folder.Change([](Description& now) { Spend(now, FaultKind::EraseFails); });
        throw drive::PublishedError(drive::hresult::kEraseRefused);
    }
    TakeTime(drive, SecondsFor(disc, description.drive, full), disc.sectorFile, report);

    QString sectorFile = disc.sectorFile;
    if (IsWipedInPlace(disc, full)) {
        Wipe(drive, disc);
    } else {
        sectorFile = drive.folder.MakeSectorFile();
    }
    try {
        drive.folder.Change([&](Description& now) {
            RequireStillThere(now, disc.sectorFile);
            ExchangeDisc(now, Erased(*now.disc, full, sectorFile));
        });
    } catch (const runtime::RuntimeError&) {
        runtime::ResumeNext([&] { drive.folder.RemoveSpareFiles(); });
        throw;
    }
    drive.Await([&drive] { drive.folder.Flush(); });
    drive.folder.RemoveSpareFiles();
}

} // namespace velmora::virtualdrive
