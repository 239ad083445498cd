// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/MediaTypes.h"

#include <QString>

namespace velmora::recorder {

/// The display text of a disc type, with four leading blanks; empty for
/// a type that has none. Other routines look for words in these texts.
QString MediaTypeName(drive::IMAPI_MEDIA_PHYSICAL_TYPE type);

/// A speed as a multiple of the disc family's single speed, halves to even.
/// @param speed      sectors of 2048 bytes per second
/// @param mediaText  the disc's display text; the first of "CD", "DVD" and "BD" that it holds tells
/// the
///                   family, and a text without any of them gives 0
/// Error 6 when 16 bits don't hold the result.
qint16 SpeedToMultiple(double speed, const QString& mediaText);

} // namespace velmora::recorder
