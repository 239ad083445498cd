// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/ExitCode.h"
#include "writing/RunReport.h"

namespace velmora::terminal {

/// How a burn ended, as the caller of the command sees it. Whether the drive gave a good disc back
/// doesn't count.
ExitCode ExitCodeOf(const writing::RunReport& report);

} // namespace velmora::terminal
