// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::recorder {

/// What a recorder can write, a bit for each family of discs. One profile may set several.
namespace media_mask {
inline constexpr qint32 kCdR = 0x01;
inline constexpr qint32 kCdRw = 0x02;
inline constexpr qint32 kDvdR = 0x04;
inline constexpr qint32 kDvdDualLayer = 0x08;
inline constexpr qint32 kDvdRewritable = 0x10;
inline constexpr qint32 kBd = 0x20;
inline constexpr qint32 kBdR = 0x40;
inline constexpr qint32 kBdRe = 0x80;
} // namespace media_mask

/// The mask with the bits of one more profile (an MMC profile number); a profile without a row
/// doesn't change it.
qint32 ProfileToMask(qint32 mask, qint32 profile);

/// The list with the name of one more profile, followed by a semicolon. A name that the list
/// already holds, and a profile without a row, don't change it.
QString ProfileToList(const QString& list, qint32 profile);

} // namespace velmora::recorder
