// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProcess>
#include <QStandardPaths>
#include <QString>

#include <gtest/gtest.h>

namespace velmora::test {

/// A display of its own for the processes that a test starts, with control of its mouse and
/// keyboard.
class XServer {
public:
    static bool IsPossible()
    {
        return !QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty()
            && !QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty();
    }

    XServer()
    {
        server_.start(QStringLiteral("Xvfb"),
            {QStringLiteral("-displayfd"),
                QStringLiteral("1"),
                QStringLiteral("-screen"),
                QStringLiteral("0"),
                QStringLiteral("800x600x24"),
                QStringLiteral("-noreset"),
                QStringLiteral("-nolisten"),
                QStringLiteral("tcp")});
        while (!server_.canReadLine() && server_.waitForReadyRead(20'000)) { }
        const QByteArray number = server_.readLine().trimmed();
        EXPECT_FALSE(number.isEmpty()) << "no display";
        qputenv("DISPLAY", ":" + number);
        // No session either: no bus may be started that outlives the test.
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    }
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;
    ~XServer()
    {
        qunsetenv("DISPLAY");
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        server_.terminate();
        server_.waitForFinished();
    }

private:
    QProcess server_;
};

} // namespace velmora::test
