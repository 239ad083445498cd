// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <functional>

namespace velmora::drive {

/// Another program that has a file open, such as the device of a drive.
struct FileUser {
    QString program; ///< its name, as the system shows it
    qint64 process = 0;

    bool operator==(const FileUser&) const = default;
};

/// Decides from the system's facts on an open file (proc_pid_fdinfo(5)) whether it counts.
using UseFilter = std::function<bool(const QByteArray& facts)>;

/// The other programs that have a file open, by process number, as far as this user can see them.
/// @param path       canonical
/// @param processes  the system's folder of them
/// @param counts     which of their handles on it count; empty: all
QList<FileUser> UsersOf(const QString& path,
    const QString& processes = QStringLiteral("/proc"),
    const UseFilter& counts = {});

/// Tells the user that a recorder is used by these programs, and what to do about it.
/// @param users  at least one
QString InUseBy(const QList<FileUser>& users);

} // namespace velmora::drive
