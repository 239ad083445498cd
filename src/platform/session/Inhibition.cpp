// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Inhibition.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QObject>

#include <utility>

namespace velmora::session {

namespace {

QDBusPendingCall Ask(
    const QDBusConnection& bus, const HoldingService& service, const QVariantList& arguments)
{
    QDBusMessage request = QDBusMessage::createMethodCall(
        service.service, service.path, service.interface, service.hold);
    request.setArguments(arguments);
    request.setAutoStartService(false); // a service that isn't running has nothing to inhibit
    return bus.asyncCall(request);
}

void Release(const QDBusConnection& bus,
    const HoldingService& service,
    const QDBusPendingReply<quint32>& answer)
{
    if (answer.isError()) {
        return;
    }
    QDBusMessage request = QDBusMessage::createMethodCall(
        service.service, service.path, service.interface, service.release);
    request << answer.value();
    request.setAutoStartService(false);
    bus.send(request);
}

// A program that ends before the number arrives leaves the bus, which also withdraws the request.
void ReleaseOnceAnswered(
    const QDBusConnection& bus, const HoldingService& service, const QDBusPendingCall& answer)
{
    auto* watcher = new QDBusPendingCallWatcher(answer, QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, bus, service] {
        Release(bus, service, *watcher);
        watcher->deleteLater();
    });
}

} // namespace

Inhibition::Inhibition(
    const QDBusConnection& bus, HoldingService service, const QVariantList& arguments)
    : bus_(bus)
    , service_(std::move(service))
    , answer_(Ask(bus, service_, arguments))
{
}

Inhibition::~Inhibition()
{
    if (answer_.isFinished()) {
        Release(bus_, service_, answer_);
    } else {
        ReleaseOnceAnswered(bus_, service_, answer_);
    }
}

} // namespace velmora::session
