// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QString>

namespace velmora::session {

/// What a notice is about, in the categories of desktops.
enum class NoticeKind : quint8 {
    Done,    ///< a transfer is complete
    Stopped, ///< a transfer was stopped by the user
    Failed,  ///< a transfer failed: the notice stays until it is seen
    Waiting, ///< a transfer waits for the user
};

/// A notice for a user who isn't looking at the program.
struct Notice {
    NoticeKind kind = NoticeKind::Done;
    QString title {}; ///< one line
    QString text {};  ///< plain text
};

/// Shows a notice on the desktop.
///
/// It doesn't wait, and fails silently on a desktop without notices.
/// @param session  the bus of the user's desktop
void ShowNotice(const QDBusConnection& session, const Notice& notice);

} // namespace velmora::session
