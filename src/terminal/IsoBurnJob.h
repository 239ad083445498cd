// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/DiscRequest.h"
#include "terminal/DiscSurroundings.h"
#include "terminal/ExitCode.h"

namespace velmora::terminal {

/// Burns an image file to a blank disc. What goes wrong is told on the screen.
ExitCode BurnIsoFile(const IsoBurnRequest& request, const DiscSurroundings& surroundings);

} // namespace velmora::terminal
