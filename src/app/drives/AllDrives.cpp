// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/drives/AllDrives.h"

#include "drives/SystemDrives.h"
#include "virtual/VirtualDriveSource.h"

#include <memory>

namespace velmora::app {

mastering::DriveSources AllDrives(
    runtime::EventPump& pump, runtime::Clock& clock, drive::Unmounter& unmounter)
{
    using drives::BurnDriveContext;
    using drives::SystemDrives;
    using virtualdrive::Recorders;
    using virtualdrive::VirtualDriveSource;
    return {std::make_shared<SystemDrives>(
                BurnDriveContext {.pump = pump, .clock = clock, .unmounter = &unmounter}),
        std::make_shared<VirtualDriveSource>(Recorders::OfUser(), clock, pump)};
}

} // namespace velmora::app
