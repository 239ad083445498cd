// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/disc/DiscComparison.h"

#include "drive/SectorSize.h"
#include "runtime/ResumeNext.h"

#include <algorithm>
#include <vector>

namespace velmora::terminal {

namespace {

constexpr qint64 kPieceSectors = PieceDigests::kPieceBytes / drive::kSectorBytes;
constexpr qint64 kStepSectors = 2048; // 4 MiB: a slow disc still tells of itself now and then

/// Keeps a drive for as long as it lives, its disc unmounted.
class DriveHold {
public:
    explicit DriveHold(drive::Drive& drive)
        : drive_(drive)
    {
        drive_.Lock(true);
    }
    ~DriveHold()
    {
        runtime::ResumeNext([this] { drive_.Unlock(); });
    }
    DriveHold(const DriveHold&) = delete;
    DriveHold& operator=(const DriveHold&) = delete;
    DriveHold(DriveHold&&) = delete;
    DriveHold& operator=(DriveHold&&) = delete;

private:
    drive::Drive& drive_;
};

class DiscReading {
public:
    DiscReading(const WitnessedRecording& written, const ComparisonContext& context)
        : written_(written)
        , context_(context)
    {
    }

    Comparison Run()
    {
        const DriveHold hold(*written_.drive);
        while (done_ < written_.sectors) {
            if (context_.stopRequested()) {
                return Ended(ComparisonEnd::Stopped);
            }
            if (!ReadStep()) {
                return Unreadable();
            }
            if (FirstDifference(read_, written_.digests)) {
                return Different();
            }
            context_.progress.ShowBytes(read_.Bytes(), written_.digests.Bytes());
            context_.pump.Pump();
        }
        return read_.Digest() == written_.digests.Digest() ? Ended(ComparisonEnd::Same)
                                                           : Different();
    }

private:
    bool ReadStep()
    {
        const qint64 count = std::min(kStepSectors, written_.sectors - done_);
        buffer_.resize(static_cast<std::size_t>(count * drive::kSectorBytes));
        try {
            written_.drive->Read(written_.firstSector + done_, buffer_);
        } catch (const runtime::RuntimeError& failure) {
            failure_ = failure.Description();
            return false;
        }
        read_.Add(buffer_);
        done_ += count;
        return true;
    }

    Comparison Ended(ComparisonEnd end) const
    {
        const bool isSame = end == ComparisonEnd::Same;
        return {.end = end,
            .sameSectors = isSame ? done_ : done_ / kPieceSectors * kPieceSectors,
            .digest = read_.Digest()};
    }

    Comparison Different() const
    {
        Comparison comparison = Ended(ComparisonEnd::Different);
        const auto piece = FirstDifference(read_, written_.digests);
        const qint64 same
            = piece ? static_cast<qint64>(*piece) * kPieceSectors : comparison.sameSectors;
        comparison.sameSectors = same;
        comparison.firstSector = written_.firstSector + same;
        comparison.lastSector = written_.firstSector + done_ - 1;
        return comparison;
    }

    Comparison Unreadable() const
    {
        Comparison comparison = Ended(ComparisonEnd::Unreadable);
        comparison.firstSector = written_.firstSector + done_;
        comparison.lastSector
            = written_.firstSector + std::min(done_ + kStepSectors, written_.sectors) - 1;
        comparison.failure = failure_;
        return comparison;
    }

    const WitnessedRecording& written_;
    const ComparisonContext& context_;
    PieceDigests read_;
    qint64 done_ = 0;
    QString failure_;
    std::vector<std::byte> buffer_;
};

} // namespace

Comparison CompareWithDisc(const WitnessedRecording& recording, const ComparisonContext& context)
{
    return DiscReading(recording, context).Run();
}

} // namespace velmora::terminal
