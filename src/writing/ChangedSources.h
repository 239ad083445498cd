// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "writing/BurnScreen.h"
#include "writing/RunReport.h"

namespace velmora::writing {

/// Warns in the log of each source that changed while it was written: the disc or file holds what
/// was read from it.
void TellChangedSources(const RunReport& report, BurnScreen& screen);

} // namespace velmora::writing
