// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "imapi/Multisession.h"

#include "imapi/DiscState.h"

#include <utility>

namespace velmora::imapi {

Multisession::Multisession(DriveRef drive, DiscInfo disc)
    : drive_(std::move(drive))
    , disc_(std::move(disc))
{
}

IMAPI_MEDIA_PHYSICAL_TYPE Multisession::PhysicalMediaType() const { return MediaTypeOf(disc_); }

bool Multisession::IsBlank() const
{
    return disc_.state == DiscState::Blank
        || (disc_.state == DiscState::Overwritable && disc_.heuristicallyBlank);
}

void Multisession::ReadSectors(qint64 firstSector, std::span<std::byte> out)
{
    drive_->Read(firstSector, out);
}

} // namespace velmora::imapi
