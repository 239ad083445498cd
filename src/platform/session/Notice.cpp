// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Notice.h"

#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>

namespace velmora::session {

using namespace Qt::StringLiterals;

namespace {

// As the Desktop Notifications Specification 1.2 has them.
constexpr quint8 kNormal = 1;
constexpr quint8 kCritical = 2;

QString CategoryOf(NoticeKind kind)
{
    switch (kind) {
    case NoticeKind::Done:
        return u"transfer.complete"_s;
    case NoticeKind::Failed:
        return u"transfer.error"_s;
    case NoticeKind::Stopped:
    case NoticeKind::Waiting:
        break;
    }
    return u"transfer"_s;
}

} // namespace

void ShowNotice(const QDBusConnection& session, const Notice& notice)
{
    constexpr quint32 kReplacesNone = 0;
    constexpr qint32 kUsualTime = -1;
    const QString program = u"org.velmora.Velmora"_s; // the desktop entry's name and the icon's
    QDBusMessage request = QDBusMessage::createMethodCall(u"org.freedesktop.Notifications"_s,
        u"/org/freedesktop/Notifications"_s,
        u"org.freedesktop.Notifications"_s,
        u"Notify"_s);
    const quint8 urgency = notice.kind == NoticeKind::Failed ? kCritical : kNormal;
    const QVariantMap hints {{u"desktop-entry"_s, program},
        {u"category"_s, CategoryOf(notice.kind)},
        {u"urgency"_s, QVariant::fromValue(urgency)}};
    request << u"Velmora"_s << kReplacesNone << program << notice.title
            << notice.text.toHtmlEscaped() << QStringList() << hints << kUsualTime;
    session.send(request);
}

} // namespace velmora::session
