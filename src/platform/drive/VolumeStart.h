// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace velmora::drive {

// The sectors that every file system uses: a disc without them counts as blank.
inline constexpr qint64 kStartSectors = 32;  ///< at the disc's start
inline constexpr qint64 kAnchorSector = 256; ///< the first anchor of UDF (ECMA-167 3/8.4.2.1)

} // namespace velmora::drive
