// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QList>

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>

namespace velmora::shell {

/// The device behind a special file; none if it isn't a block device.
std::optional<dev_t> BlockDeviceOf(const std::string& specialFile);

/// Where the system lists its file systems and devices.
struct FixedDrivesContext {
    std::filesystem::path mounts = "/proc/self/mountinfo";
    std::filesystem::path blockDevices = "/sys/dev/block";
    std::optional<dev_t> (*deviceOf)(const std::string& specialFile) = BlockDeviceOf;
};

/// The roots of the writable local file systems: they end in a backslash, and are sorted by name.
/// Pseudo, network, optical and removable file systems are left out, and so are loop-mounted files.
/// A device that is mounted at several places counts once, at the first of them.
QList<text::ProgramPath> ListFixedDrives(const FixedDrivesContext& context = {});

} // namespace velmora::shell
