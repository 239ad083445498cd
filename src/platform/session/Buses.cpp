// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Buses.h"

#include <QFile>
#include <QStandardPaths>
#include <QString>

namespace velmora::session {

using namespace Qt::StringLiterals;

namespace {

/// Connecting without an address would start a new bus.
bool HasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
        || QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/bus"_s);
}

} // namespace

Buses BusesOfUser()
{
    return {QDBusConnection::systemBus(),
        HasSessionBus() ? QDBusConnection::sessionBus() : QDBusConnection(QString())};
}

} // namespace velmora::session
