// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/RuntimeError.h"

#include <QString>

#include <optional>

namespace velmora::drives {

/// Where the system tells which programs use a device.
struct UseTables {
    QString mounts = QStringLiteral("/proc/self/mountinfo");
    QString processes = QStringLiteral("/proc");
};

/// Where a file system of that device is in the file tree.
/// @param mountTable  the kernel's mountinfo
std::optional<QString> MountPointOf(const QString& device, const QString& mountTable);

/// The error for a drive in use elsewhere, C0AA0210: names the mount point of its disc or the
/// programs that have it, as far as the system tells.
runtime::RuntimeError DriveInUse(const QString& device, const UseTables& tables = {});

} // namespace velmora::drives
