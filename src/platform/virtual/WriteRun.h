// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/DiscRules.h"
#include "virtual/DriveContext.h"
#include "virtual/SectorFile.h"
#include "virtual/SectorWriter.h"

#include <QList>

#include <optional>
#include <vector>

namespace velmora::virtualdrive {

/// One write, in the steps that drives take. Make one for each write; the caller holds the drive.
class WriteRun {
public:
    WriteRun(DriveContext& drive, const drive::WriteOrder& order, const drive::WriteReport& report);

    /// Errors: those of Drive::Write.
    void Run();

private:
    void Validate();
    void Step(drive::WriteAction action, double seconds);
    void WriteSectors();
    struct SectorBytes {
        qint64 sector = 0;
        std::vector<std::byte> bytes;
    };
    QList<SectorBytes> SectorsBeforeWrite();
    void StrikeQuietly(const QList<SectorBytes>& swallowed);
    bool IsWritten(qint64 sector) const;
    std::vector<std::byte> BytesOf(qint64 sector) const;
    void Feed(SectorWriter& writer);
    void Settle(SectorWriter& writer);
    void Tell(const SectorWriter& writer);
    void Finish();

    /// The description as it is now, with our disc still in the drive.
    const Description& Look();
    std::optional<Fault> NextFault(const Description& now, qint64 written) const;
    [[noreturn]] void Strike(const Fault& fault);
    qint64 Allowed(double started, qint64 limit) const;
    void ChangeDisc(const std::function<void(Disc&)>& change);
    void KeepWritten(qint64 sectors);
    void Report(drive::WriteAction action);
    bool TellProgress(drive::WriteAction action) const;
    void RequireNotStopped() const;

    DriveContext& drive_;
    const drive::WriteOrder& order_;
    const drive::WriteReport& report_;

    DriveDescription facts_;
    QString sectorFile_;
    WritePlan plan_;
    std::optional<SectorFile> file_;
    double sectorsPerSecond_ = 0;
    qint64 taken_ = 0;
    qint64 written_ = 0;
    double lastReport_ = 0;
    double lastKept_ = 0;
    bool isStopped_ = false;
};

} // namespace velmora::virtualdrive
