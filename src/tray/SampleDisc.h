// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/Clock.h"

#include <cstddef>
#include <vector>

namespace velmora::tray {

/// The image of a small disc with one folder: the contents of a recorded disc for which the user
/// gave no image.
/// @return  whole sectors
std::vector<std::byte> SampleImage(const runtime::Clock& clock);

} // namespace velmora::tray
