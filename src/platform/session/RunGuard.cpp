// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/RunGuard.h"

#include <QDBusMessage>

namespace velmora::session {

using namespace Qt::StringLiterals;

namespace {

/// The name shown in the user's list of inhibiting programs.
constexpr QStringView kProgram = u"Velmora";

QDBusPendingCall HoldMachine(const QDBusConnection& system, const QString& reason)
{
    QDBusMessage request = QDBusMessage::createMethodCall(u"org.freedesktop.login1"_s,
        u"/org/freedesktop/login1"_s,
        u"org.freedesktop.login1.Manager"_s,
        u"Inhibit"_s);
    request << u"sleep:shutdown:idle:handle-lid-switch"_s << kProgram.toString() << reason
            << u"block"_s;
    request.setAutoStartService(false);
    return system.asyncCall(request);
}

HoldingService SessionManager()
{
    return {u"org.gnome.SessionManager"_s,
        u"/org/gnome/SessionManager"_s,
        u"org.gnome.SessionManager"_s,
        u"Inhibit"_s,
        u"Uninhibit"_s};
}

QVariantList LogoutArguments(const QString& reason)
{
    constexpr quint32 kNoWindow = 0;
    constexpr quint32 kLogout = 1;
    constexpr quint32 kStandby = 4;
    return {kProgram.toString(), kNoWindow, reason, kLogout | kStandby};
}

HoldingService PowerManagement()
{
    return {u"org.freedesktop.PowerManagement"_s,
        u"/org/freedesktop/PowerManagement/Inhibit"_s,
        u"org.freedesktop.PowerManagement.Inhibit"_s,
        u"Inhibit"_s,
        u"UnInhibit"_s};
}

HoldingService ScreenSaver()
{
    return {u"org.freedesktop.ScreenSaver"_s,
        u"/org/freedesktop/ScreenSaver"_s,
        u"org.freedesktop.ScreenSaver"_s,
        u"Inhibit"_s,
        u"UnInhibit"_s};
}

} // namespace

RunGuard::RunGuard(const Buses& buses, const QString& reason)
    : machine_(HoldMachine(buses.system, reason))
    , logout_(buses.session, SessionManager(), LogoutArguments(reason))
    , standby_(buses.session, PowerManagement(), {kProgram.toString(), reason})
{
    QObject::connect(&machine_,
        &QDBusPendingCallWatcher::finished,
        &machine_,
        [this, session = buses.session, reason] {
            if (machine_.isError()) {
                screen_.emplace(session, ScreenSaver(), QVariantList {kProgram.toString(), reason});
            }
        });
}

} // namespace velmora::session
