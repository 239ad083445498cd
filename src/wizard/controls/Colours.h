// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

/// The colours of the window that aren't the desktop's.
namespace velmora::wizard::colour {

inline constexpr QColor kAccent {0x40, 0x60, 0xC0};
inline constexpr QColor kBand {0x40, 0x40, 0x40};
inline constexpr QColor kBandText {0xC0, 0xC0, 0xC0};
/// The accent where it lies on the dark band.
inline constexpr QColor kAccentOnBand {0x8F, 0xA6, 0xF0};
/// Past the capacity of a disc.
inline constexpr QColor kWarning {0xD9, 0x6A, 0x1A};

} // namespace velmora::wizard::colour
