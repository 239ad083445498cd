// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QString>

namespace velmora::session {

/// The buses on which services can be asked. One that isn't there is not connected, as at first;
/// what is asked on it fails at once.
struct Buses {
    QDBusConnection system {QString()};  ///< the machine's
    QDBusConnection session {QString()}; ///< the user's desktop's
};

/// Those of this process. Needs the application object. A user without a desktop gets no session
/// bus, and none is started.
Buses BusesOfUser();

} // namespace velmora::session
