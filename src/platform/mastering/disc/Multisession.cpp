// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/disc/Multisession.h"

#include "mastering/base/DiscState.h"

#include <utility>

namespace velmora::mastering {

Multisession::Multisession(drive::DriveRef drive, drive::DiscInfo disc)
    : drive_(std::move(drive))
    , disc_(std::move(disc))
{
}

drive::IMAPI_MEDIA_PHYSICAL_TYPE Multisession::PhysicalMediaType() const
{
    return MediaTypeOf(disc_);
}

bool Multisession::IsBlank() const
{
    return disc_.state == drive::DiscState::Blank
        || (disc_.state == drive::DiscState::Overwritable && disc_.heuristicallyBlank);
}

void Multisession::ReadSectors(qint64 firstSector, std::span<std::byte> out)
{
    drive_->Read(firstSector, out);
}

} // namespace velmora::mastering
