// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Buses.h"
#include "tests/support/QtPrinters.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QElapsedTimer>
#include <QProcess>
#include <QStringList>
#include <QVariantMap>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

namespace velmora::session {

using namespace Qt::StringLiterals;

constexpr qint64 kNoWait = 10'000; // in milliseconds: a call without an answer takes 25 seconds

/// A bus of its own, with stand-ins for the services of a desktop that answer calls and record
/// them. Skips if the stand-ins' program is missing.
class ServiceBench : public testing::Test {
protected:
    void SetUp() override
    {
        QProcess probe;
        probe.start(u"/usr/bin/python3"_s, {u"-c"_s, u"import dbusmock"_s});
        if (!probe.waitForFinished() || probe.exitCode() != 0) {
            GTEST_SKIP() << "python3-dbusmock isn't installed";
        }
        daemon_.start(u"dbus-daemon"_s,
            {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address"_s});
        if (!daemon_.waitForStarted()) {
            GTEST_SKIP() << "dbus-daemon isn't installed";
        }
        ASSERT_TRUE(daemon_.waitForReadyRead());
        address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
        ASSERT_TRUE(Bus().isConnected());
    }

    void TearDown() override
    {
        if (!address_.isEmpty()) {
            // The bus answers in order: afterwards everything sent without waiting has been
            // answered.
            Bus().interface()->isServiceRegistered(u"org.freedesktop.DBus"_s);
        }
        QDBusConnection::disconnectFromBus(u"bench"_s);
        for (const auto& service : services_) {
            End(*service);
        }
        End(daemon_);
    }

    /// Both buses of the machine in one.
    QDBusConnection Bus() const { return QDBusConnection::connectToBus(address_, u"bench"_s); }
    Buses BothBuses() const { return {Bus(), Bus()}; }

    /// Starts the stand-in for a service; the last three words are its name, path and interface, or
    /// "--template" and the name of one that is known.
    void Start(const QString& name, const QStringList& words)
    {
        auto service = std::make_unique<QProcess>();
        QProcessEnvironment surroundings = QProcessEnvironment::systemEnvironment();
        surroundings.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address_);
        surroundings.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, address_);
        service->setProcessEnvironment(surroundings);
        service->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        service->start(
            u"/usr/bin/python3"_s, QStringList {u"-m"_s, u"dbusmock"_s, u"--session"_s} + words);
        services_.push_back(std::move(service));
        ASSERT_TRUE(Until([&] { return Bus().interface()->isServiceRegistered(name).value(); }));
    }

    /// Gives a stand-in a method: its parameters' types, its result's, and what it does.
    void AddMethod(const QString& service, const QString& path, const QStringList& method)
    {
        QDBusMessage request = QDBusMessage::createMethodCall(
            service, path, u"org.freedesktop.DBus.Mock"_s, u"AddMethod"_s);
        request << method[0] << method[1] << method[2] << method[3] << method[4];
        const QDBusMessage reply = Bus().call(request);
        ASSERT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
    }

    /// The arguments of each call of a stand-in's method so far.
    std::vector<QVariantList> Calls(
        const QString& service, const QString& path, const QString& method) const
    {
        QDBusMessage request = QDBusMessage::createMethodCall(
            service, path, u"org.freedesktop.DBus.Mock"_s, u"GetMethodCalls"_s);
        request << method;
        const QDBusMessage reply = Bus().call(request);
        std::vector<QVariantList> calls;
        const auto array = reply.arguments().value(0).value<QDBusArgument>();
        array.beginArray();
        while (!array.atEnd()) {
            quint64 time = 0;
            QVariantList arguments;
            array.beginStructure();
            array >> time >> arguments;
            array.endStructure();
            calls.push_back(arguments);
        }
        array.endArray();
        return calls;
    }

    /// Handles events until it holds, for ten seconds at most.
    static bool Until(const std::function<bool()>& holds)
    {
        QElapsedTimer timer;
        timer.start();
        while (!holds()) {
            if (timer.hasExpired(10'000)) {
                return false;
            }
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        }
        return true;
    }

private:
    static void End(QProcess& process)
    {
        process.kill();
        process.waitForFinished();
    }

    int argc_ = 1;
    char name_[5] = "test";
    char* argv_[2] = {name_, nullptr};
    QCoreApplication application_ {argc_, argv_};
    QProcess daemon_;
    QString address_;
    std::vector<std::unique_ptr<QProcess>> services_;
};

} // namespace velmora::session
