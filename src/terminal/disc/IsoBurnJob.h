// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/arguments/DiscRequest.h"
#include "terminal/console/ExitCode.h"
#include "terminal/disc/DiscContext.h"

namespace velmora::terminal {

/// Burns an image file to a blank disc, or to as many as requested. Failures are reported on the
/// screen.
ExitCode BurnIsoFile(const IsoBurnRequest& request, const DiscContext& context);

} // namespace velmora::terminal
