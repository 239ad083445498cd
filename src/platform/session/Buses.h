// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>

namespace velmora::session {

/// The buses on which services can be asked. One that isn't there is not connected; what is asked
/// on it fails at once.
struct Buses {
    QDBusConnection system;  ///< the machine's
    QDBusConnection session; ///< the user's desktop's
};

/// Those of this process. Needs the application object. A user without a desktop gets no session
/// bus, and none is started.
Buses BusesOfUser();

} // namespace velmora::session
