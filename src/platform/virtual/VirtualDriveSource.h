// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "runtime/Clock.h"
#include "runtime/EventPump.h"
#include "virtual/Recorders.h"

namespace velmora::virtualdrive {

/// The virtual recorders of a user, by the ids "virtual:NAME", sorted by name. An unplugged one
/// isn't listed.
class VirtualDriveSource final : public drive::DriveSource {
public:
    /// @param clock, pump  must outlive the source and its drives
    VirtualDriveSource(Recorders recorders, runtime::Clock& clock, runtime::EventPump& pump);

    QStringList Ids() override;
    /// A drive that is unplugged can be opened: it raises 0x80070037 at each call.
    drive::DriveRef Open(const QString& id) override;

private:
    Recorders recorders_;
    runtime::Clock& clock_;
    runtime::EventPump& pump_;
};

} // namespace velmora::virtualdrive
