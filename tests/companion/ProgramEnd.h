// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/LinkFolder.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLocalSocket>

#include <functional>

namespace velmora::test {

/// Handles events until a condition holds, for ten seconds at most.
inline bool Await(const std::function<bool()>& isSo)
{
    QElapsedTimer waited;
    waited.start();
    while (!isSo() && waited.elapsed() < 10'000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return isSo();
}

/// The program's end of the link, as bytes, in the thread of the companion itself.
class ProgramEnd {
public:
    /// Joins the companion that listens in a folder.
    bool Join(const link::LinkFolder& folder)
    {
        Connect(folder, QStringLiteral("StopButton|Undo"));
        Say("Commande\n");
        return Hears("\n");
    }
    /// Reaches a service of the companion.
    void Connect(const link::LinkFolder& folder, const QString& topic)
    {
        socket_.connectToServer(link::SocketName(folder.Path(), topic));
    }
    void Say(const char* line)
    {
        socket_.write(line);
        socket_.flush();
    }
    /// Whether exactly that arrives within ten seconds.
    bool Hears(const QByteArray& bytes)
    {
        QByteArray heard;
        return Await([&] {
            heard += socket_.readAll();
            return heard.size() >= bytes.size();
        }) && heard == bytes;
    }
    void Leave() { socket_.abort(); }

private:
    QLocalSocket socket_;
};

} // namespace velmora::test
