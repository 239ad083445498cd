// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/arguments/DiscRequest.h"
#include "terminal/console/ExitCode.h"
#include "terminal/disc/DiscContext.h"

namespace velmora::terminal {

/// Erases the disc in a recorder. The result is shown on the screen, as the drive reports it.
ExitCode RunErase(const EraseRequest& request, const DiscContext& context);

} // namespace velmora::terminal
