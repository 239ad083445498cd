// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Unmounter.h"
#include "mastering/base/MasteringContext.h"
#include "runtime/Clock.h"
#include "runtime/EventPump.h"

namespace velmora::app {

/// The drives of this machine, then the virtual ones: the order of the list of recorders. The
/// arguments outlive them.
mastering::DriveSources AllDrives(
    runtime::EventPump& pump, runtime::Clock& clock, drive::Unmounter& unmounter);

} // namespace velmora::app
