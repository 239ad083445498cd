// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Notice.h"

#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

namespace velmora::session {

using namespace Qt::StringLiterals;

void ShowNotice(const QDBusConnection& session, const QString& title, const QString& text)
{
    constexpr quint32 kReplacesNone = 0;
    constexpr qint32 kUsualTime = -1;
    const QString program = u"org.velmora.Velmora"_s; // the desktop entry's name and the icon's
    QDBusMessage request = QDBusMessage::createMethodCall(u"org.freedesktop.Notifications"_s,
        u"/org/freedesktop/Notifications"_s,
        u"org.freedesktop.Notifications"_s,
        u"Notify"_s);
    const QVariantMap hints {
        {u"desktop-entry"_s, program}, {u"category"_s, u"transfer.complete"_s}};
    request << u"Velmora"_s << kReplacesNone << program << title << text.toHtmlEscaped()
            << QStringList() << hints << kUsualTime;
    session.send(request);
}

} // namespace velmora::session
