// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/RecordedFileSystem.h"

#include "mastering/isofile/VolumeExtent.h"

namespace velmora::mastering {

namespace {

/// The recording that is examined; a length of 0 means unknown.
class RecordedSession final : public SectorReader {
public:
    explicit RecordedSession(imapi::IMultisession& disc)
        : disc_(disc)
    {
        const QList<drive::SessionFacts> sessions = disc.Sessions();
        if (sessions.isEmpty()) {
            place_.sectors = disc.TotalSectorsOnMedia();
        } else {
            place_ = sessions.back();
        }
    }

    bool Holds(qint64 sector) const override
    {
        return place_.sectors == 0 || sector < place_.sectors;
    }
    Sector Read(qint64 sector) const override { return ReadOnDisc(place_.firstSector + sector); }
    Sector ReadOnDisc(qint64 sector) const override
    {
        Sector bytes {};
        disc_.ReadSectors(sector, bytes);
        return bytes;
    }

    qint64 FirstSector() const { return place_.firstSector; }

private:
    imapi::IMultisession& disc_;
    drive::SessionFacts place_;
};

} // namespace

std::optional<qint64> FindRecordedFileSystem(imapi::IMultisession& disc)
{
    const RecordedSession recording(disc);
    if (const auto end = EndOfIso9660(recording)) {
        return end;
    }
    const std::optional<UdfVolume> udf = FindUdfVolume(recording);
    // A file system that ends before the recording begins belongs to another one.
    if (udf && udf->partitionEnd > recording.FirstSector()) {
        return udf->partitionEnd - recording.FirstSector();
    }
    return std::nullopt;
}

} // namespace velmora::mastering
