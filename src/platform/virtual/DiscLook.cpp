// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "virtual/DiscLook.h"

#include "drive/VolumeStart.h"
#include "virtual/DiscRules.h"
#include "virtual/SectorFile.h"

namespace velmora::virtualdrive {

namespace {

bool IsStartZero(const RecorderFolder& folder, const Disc& disc)
{
    const SectorFile file(folder.SectorPath(disc.sectorFile), SectorFile::Mode::Read);
    return file.IsZero(0, drive::kStartSectors) && file.IsZero(drive::kAnchorSector, 1);
}

} // namespace

drive::DiscInfo LookAtDisc(
    const RecorderFolder& folder, const Disc& disc, const DriveDescription& drive)
{
    const bool isOverwritable = disc.medium->recording == Recording::Overwritable;
    return InfoOf(disc, drive, isOverwritable && IsStartZero(folder, disc));
}

} // namespace velmora::virtualdrive
