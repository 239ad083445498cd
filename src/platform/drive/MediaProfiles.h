// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/MediaTypes.h"

#include <QList>

namespace velmora::drive {

/// The kind of disc that an MMC profile stands for; Unknown for a profile that names none.
IMAPI_MEDIA_PHYSICAL_TYPE MediaTypeOfProfile(qint32 profile);

/// Can a disc of this kind be recorded at all?
bool IsRecordable(IMAPI_MEDIA_PHYSICAL_TYPE type);

/// Can a disc of this kind be erased?
bool IsErasable(IMAPI_MEDIA_PHYSICAL_TYPE type);

/// Does a drive of these profiles record, respectively erase, any kind of optical disc?
bool CanRecord(const QList<qint32>& profiles);
bool CanErase(const QList<qint32>& profiles);

/// Sectors of 2048 bytes per second at 1x: 75 (CD), 680 (DVD), 2195 (Blu-ray); 0 for no disc.
quint32 SingleSpeedOf(IMAPI_MEDIA_PHYSICAL_TYPE type);

} // namespace velmora::drive
