// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "drive/MediaTypes.h"

#include <QList>

namespace velmora::mastering {

// What the mastering interfaces tell about a disc, from one examination.

drive::IMAPI_MEDIA_PHYSICAL_TYPE MediaTypeOf(const drive::DiscInfo& disc);

/// A sum of media_state bits.
qint32 MediaStatusOf(const drive::DiscInfo& disc);

/// Is the disc in the drive of a recordable kind, whatever is on it?
bool IsRecordableDisc(const drive::DiscInfo& disc);

/// Sectors that one write can fill.
qint64 RoomOn(const drive::DiscInfo& disc);

/// Speeds in sectors per second, the fastest first, each once; at least one.
QList<quint32> SpeedsOf(const drive::DiscInfo& disc);

/// The speed that a request results in: the fastest for imapi::kFastestWriteSpeed, else the
/// nearest, the slower of two equally near ones.
quint32 NearestSpeed(const QList<quint32>& speeds, qint32 requested);

} // namespace velmora::mastering
