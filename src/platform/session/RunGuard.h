// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Buses.h"
#include "session/Inhibition.h"

#include <QDBusPendingCallWatcher>
#include <QString>

#include <optional>

namespace velmora::session {

/// Keeps the machine awake and the user logged in, from its birth to its end.
///
/// Where it is missing, a service is done without; where the machine itself has none, the desktop
/// is asked not to fall asleep. Nothing is waited for.
class RunGuard {
public:
    /// @param reason  why, in words that the user reads when something is held back
    RunGuard(const Buses& buses, const QString& reason);

private:
    /// Its answer is a file: what it holds back is free when it is closed.
    QDBusPendingCallWatcher machine_;
    Inhibition logout_;
    Inhibition standby_;
    std::optional<Inhibition> screen_;
};

} // namespace velmora::session
