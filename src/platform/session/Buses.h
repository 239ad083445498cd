// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QString>

namespace velmora::session {

/// The buses on which services are called. A missing one is not connected, as by default; calls on
/// it fail at once.
struct Buses {
    QDBusConnection system {QString()};  ///< the machine's
    QDBusConnection session {QString()}; ///< the user's desktop's
};

/// Those of this process. Needs the application object. Without a desktop there is no session bus,
/// and none is started.
Buses BusesOfUser();

} // namespace velmora::session
