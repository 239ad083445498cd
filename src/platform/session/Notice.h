// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QString>

namespace velmora::session {

/// What a notice is about, as desktops sort them.
enum class NoticeKind : quint8 {
    Done,    ///< a transfer came to its end
    Stopped, ///< a transfer was ended by the person
    Failed,  ///< a transfer failed: the notice stays until it was seen
    Waiting, ///< a transfer waits for the person
};

/// A notice for somebody who looks elsewhere.
struct Notice {
    NoticeKind kind = NoticeKind::Done;
    QString title {}; ///< one line
    QString text {};  ///< plain text
};

/// Shows a notice on the desktop.
///
/// Nothing is waited for, and a desktop that shows no notices goes without.
/// @param session  the bus of the user's desktop
void ShowNotice(const QDBusConnection& session, const Notice& notice);

} // namespace velmora::session
