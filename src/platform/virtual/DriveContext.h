// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/Clock.h"
#include "runtime/EventPump.h"
#include "virtual/RecorderFolder.h"

namespace velmora::virtualdrive {

/// What the work of one drive needs.
struct DriveContext {
    RecorderFolder folder;
    runtime::Clock& clock;
    runtime::EventPump& pump;

    /// Milliseconds since 1970.
    qint64 Now() const { return clock.Now().toMSecsSinceEpoch(); }
};

} // namespace velmora::virtualdrive
