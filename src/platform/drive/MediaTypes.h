// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace velmora::drive {

/// Kinds of disc, with the published numbers. A variable may hold any other number too: it names no
/// disc.
enum class IMAPI_MEDIA_PHYSICAL_TYPE : qint32 {
    Unknown = 0, ///< also an empty tray
    CdRom = 1,
    CdR = 2,
    CdRw = 3,
    DvdRom = 4,
    DvdRam = 5,
    DvdPlusR = 6,
    DvdPlusRw = 7,
    DvdPlusRDualLayer = 8,
    DvdDashR = 9,
    DvdDashRw = 10,
    DvdDashRDualLayer = 11,
    Disk = 12, ///< a medium with random write access, of any size
    DvdPlusRwDualLayer = 13,
    HdDvdRom = 14,
    HdDvdR = 15,
    HdDvdRam = 16,
    BdRom = 17,
    BdR = 18,
    BdRe = 19,
};

/// A set of file systems, with the published bits.
enum class FsiFileSystems : qint32 {
    None = 0,
    Iso9660 = 1,
    Joliet = 2, ///< never alone
    Iso9660AndJoliet = 3,
    Udf = 4,
    All = 7,
};

/// Does the set hold all file systems of the other?
constexpr bool Holds(FsiFileSystems set, FsiFileSystems other)
{
    return (static_cast<qint32>(set) & static_cast<qint32>(other)) == static_cast<qint32>(other);
}

} // namespace velmora::drive
