// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/Mastering.h"
#include "recorder/RecorderState.h"

namespace velmora::recorder {

/// Builds RecorderList: a record for each recorder, in the platform's order. A recorder that can't
/// be queried keeps its place as an unusable record with what was read so far.
/// @return  how many recorders there are; 0, with the list as it was, when the platform can't tell
qint16 EnumerateRecorders(RecorderState& state, imapi::Mastering& mastering);

} // namespace velmora::recorder
