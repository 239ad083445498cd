// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace velmora::drive {

inline constexpr qint64 kSectorBytes = 2048; ///< bytes of user data in a sector of any disc

} // namespace velmora::drive
