// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IStream.h"
#include "writing/BurnScreen.h"
#include "writing/RunReport.h"

namespace velmora::writing {

/// Reports which sources of a stream changed while it was written, and warns of each in the log:
/// the disc or file has what was read of it.
void TellChangedSources(const imapi::IStream& stream, RunReport& report, BurnScreen& screen);

} // namespace velmora::writing
