// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/Drive.h"
#include "imapi/IMultisession.h"

namespace velmora::imapi {

/// One look at a disc, and the drive to read it by.
class Multisession final : public IMultisession {
public:
    Multisession(DriveRef drive, DiscInfo disc);

    IMAPI_MEDIA_PHYSICAL_TYPE PhysicalMediaType() const override;
    DiscState State() const override { return disc_.state; }
    bool IsBlank() const override;
    QList<SessionFacts> Sessions() const override { return disc_.sessions; }
    qint64 FreeSectorsOnMedia() const override { return disc_.freeSectors; }
    qint64 TotalSectorsOnMedia() const override { return disc_.totalSectors; }
    void ReadSectors(qint64 firstSector, std::span<std::byte> out) override;

private:
    DriveRef drive_;
    DiscInfo disc_;
};

} // namespace velmora::imapi
