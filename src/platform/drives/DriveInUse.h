// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/RuntimeError.h"

#include <QString>

#include <optional>

namespace velmora::drives {

/// Where the system tells who uses a device.
struct UseTables {
    QString mounts = QStringLiteral("/proc/self/mountinfo");
    QString processes = QStringLiteral("/proc");
};

/// Where a file system of that device is in the file tree.
/// @param mountTable  the kernel's mountinfo
std::optional<QString> MountPointOf(const QString& device, const QString& mountTable);

/// The error of a drive that somebody else has, C0AA0210: names the mount point of its disc or the
/// programs that have it, as far as the system tells.
runtime::RuntimeError DriveInUse(const QString& device, const UseTables& tables = {});

} // namespace velmora::drives
