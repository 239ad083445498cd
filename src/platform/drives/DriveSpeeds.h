// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"

#include <QList>
#include <QtGlobal>

#include <vector>

namespace burn {
struct burn_drive;
} // namespace burn

namespace velmora::drives {

/// A speed in the drive's unit and in the program's.
struct WriteSpeed {
    int kilobytes = 0;   ///< 1000 bytes a second
    quint32 sectors = 0; ///< sectors a second
};

/// Speeds for the disc that is in the drive, fastest first, each once.
std::vector<WriteSpeed> WriteSpeedsOf(burn::burn_drive* drive);

QList<quint32> SpeedsIn(const std::vector<WriteSpeed>& speeds);

/// The drive's number for the fastest speed up to the requested one, or else for the slowest.
/// @param wish  sectors a second; drive::kFastestSpeed = the fastest
/// @return      1000 bytes a second, 0 = the fastest, as the library takes it
int KilobytesNotAbove(const std::vector<WriteSpeed>& speeds, quint32 wish);

/// Requests a speed for the following reads; the drive's answer is ignored.
void AskReadSpeed(burn::burn_drive* drive, drive::ReadSpeed speed);

} // namespace velmora::drives
