// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/Description.h"

namespace velmora::virtualdrive {

/// Where a recording goes and what becomes of the disc.
struct WritePlan {
    qint64 first = 0; ///< sector
    qint64 end = 0;   ///< after the last sector, padding included
    bool formats = false;
    bool closes = false;
};

/// The disc that the drive can work with.
/// @param now  milliseconds since 1970
/// Errors: C0AA0202 (none, or the tray is open), C0AA0204, C0AA0205.
const Disc& RequireReadyDisc(const Description& description, qint64 now);

/// Is the disc that a command began with still in the drive?
/// Errors: 0x80070037 (the drive is gone), C0AA0202 (the disc is).
void RequireStillThere(const Description& description, const QString& sectorFile);

/// What examining the disc finds.
/// @param startIsZero  the sectors that distinguish a blank disc hold only zeros
drive::DiscInfo InfoOf(const Disc& disc, const DriveDescription& drive, bool startIsZero);

/// Sectors per second, fastest first.
QList<quint32> SpeedsOf(const Disc& disc, const DriveDescription& drive);
/// The fastest listed speed up to the requested one, else the slowest. 0 for an empty list.
quint32 FastestNotAbove(const QList<quint32>& speeds, quint32 asked);

/// Is all of it recorded (or, on an overwritable disc, there)?
bool IsReadable(const Disc& disc, qint64 first, qint64 sectors);

/// Plans the next recording.
/// Errors: E_INVALIDARG (nothing to write), C0AA0209, C0AA0402, C0AA0404, C0AA0406.
WritePlan PlanWrite(
    const Disc& disc, const DriveDescription& drive, qint64 sectors, bool closeDisc);
/// The recording begins: the contents of an overwritable disc are lost.
void BeginWrite(Disc& disc, const WritePlan& plan);
/// Notes how many sectors of the recording are on the disc.
void KeepProgress(Disc& disc, qint64 sectors);
void EndWrite(Disc& disc, const WritePlan& plan);

/// Errors: C0AA0909, 80AA0904, C0AA0209.
void RequireErasable(const Disc& disc, const DriveDescription& drive);
/// What is known of a disc after an erase.
/// @param sectorFile  that of the erased disc
Disc Erased(Disc disc, bool full, const QString& sectorFile);

void OpenTray(Description& description);
/// Pulls the tray in; the disc can be used once it has had its time to get ready.
/// @return false when the tray is stuck
bool ShutTray(Description& description, qint64 now);

} // namespace velmora::virtualdrive
