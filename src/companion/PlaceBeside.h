// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace velmora::companion {

/// Where a small window covers least of another one: beside it, if any side has room, else in the
/// lower left corner of the screen. The burn page has its progress at the top and its own stop
/// button at the lower right.
/// @param other  the window to keep visible
/// @param size   of the small window, its frame included
/// @param room   what the screen has for windows
QPoint PlaceBeside(const QRect& other, const QSize& size, const QRect& room);

} // namespace velmora::companion
