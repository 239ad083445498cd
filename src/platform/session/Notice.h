// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QString>

namespace velmora::session {

/// Tells somebody who looks elsewhere how a run has ended, by a notice on the desktop.
///
/// Nothing is waited for, and a desktop that shows no notices goes without.
/// @param session  the bus of the user's desktop
/// @param title    one line
/// @param text     plain text
void ShowNotice(const QDBusConnection& session, const QString& title, const QString& text);

} // namespace velmora::session
