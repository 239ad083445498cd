// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/DiscUnmounter.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QList>
#include <QVariantMap>

#include <utility>

namespace velmora::session {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMilliseconds = 5000; // for each of the two calls: the first may start the service

QDBusMessage Call(const QString& path, const QString& interface, const QString& method)
{
    return QDBusMessage::createMethodCall(
        u"org.freedesktop.UDisks2"_s, path, u"org.freedesktop.UDisks2."_s + interface, method);
}

/// The service's own object for a device; an empty path if it knows none.
QString ObjectOf(const QDBusConnection& bus, const QString& device)
{
    QDBusMessage request
        = Call(u"/org/freedesktop/UDisks2/Manager"_s, u"Manager"_s, u"ResolveDevice"_s);
    request << QVariantMap {{u"path"_s, device}} << QVariantMap {};
    const QDBusReply<QList<QDBusObjectPath>> reply = bus.call(request, QDBus::Block, kMilliseconds);
    return reply.isValid() && !reply.value().isEmpty() ? reply.value().first().path() : QString();
}

} // namespace

DiscUnmounter::DiscUnmounter(QDBusConnection system)
    : bus_(std::move(system))
{
}

bool DiscUnmounter::Unmount(const QString& device)
{
    const QString object = ObjectOf(bus_, device);
    if (object.isEmpty()) {
        return false;
    }
    QDBusMessage request = Call(object, u"Filesystem"_s, u"Unmount"_s);
    request << QVariantMap {{u"auth.no_user_interaction"_s, true}};
    const QDBusMessage reply = bus_.call(request, QDBus::Block, kMilliseconds);
    return reply.type() == QDBusMessage::ReplyMessage
        || reply.errorName() == u"org.freedesktop.UDisks2.Error.NotMounted";
}

} // namespace velmora::session
