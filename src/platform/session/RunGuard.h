// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Buses.h"
#include "session/Inhibition.h"

#include <QDBusPendingCallWatcher>
#include <QString>

#include <optional>

namespace velmora::session {

/// Keeps the machine awake and the user logged in for its lifetime.
///
/// A missing service is skipped; if the machine has none, the desktop is asked not to suspend.
/// Nothing blocks.
class RunGuard {
public:
    /// @param reason  why, in words that the user reads when something is inhibited
    RunGuard(const Buses& buses, const QString& reason);

private:
    /// It answers with a file descriptor: closing it ends the inhibition.
    QDBusPendingCallWatcher machine_;
    Inhibition logout_;
    Inhibition standby_;
    std::optional<Inhibition> screen_;
};

} // namespace velmora::session
