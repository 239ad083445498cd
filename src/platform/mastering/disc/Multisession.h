// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "imapi/IMultisession.h"

namespace velmora::mastering {

/// The facts of a disc, and the drive to read it with.
class Multisession final : public imapi::IMultisession {
public:
    Multisession(drive::DriveRef drive, drive::DiscInfo disc);

    drive::IMAPI_MEDIA_PHYSICAL_TYPE PhysicalMediaType() const override;
    drive::DiscState State() const override { return disc_.state; }
    bool IsBlank() const override;
    QList<drive::SessionFacts> Sessions() const override { return disc_.sessions; }
    qint64 FreeSectorsOnMedia() const override { return disc_.freeSectors; }
    qint64 TotalSectorsOnMedia() const override { return disc_.totalSectors; }
    void ReadSectors(qint64 firstSector, std::span<std::byte> out) override;

private:
    drive::DriveRef drive_;
    drive::DiscInfo disc_;
};

} // namespace velmora::mastering
