// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Buses.h"
#include "session/Inhibition.h"

#include <QDBusPendingCall>
#include <QString>

namespace velmora::session {

/// Keeps the machine awake and the user logged in, from its birth to its end.
///
/// Where it is missing, a service is done without. Nothing is waited for.
class RunGuard {
public:
    /// @param reason  why, in words that the user reads when something is held back
    RunGuard(const Buses& buses, const QString& reason);

private:
    QDBusPendingCall machine_; // its answer is a file: what it holds back is free when it is closed
    Inhibition logout_;
    Inhibition standby_;
};

} // namespace velmora::session
