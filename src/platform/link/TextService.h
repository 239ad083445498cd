// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "link/LinkLines.h"
#include "text/Paths.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QString>

#include <functional>
#include <memory>

namespace velmora::link {

/// One item that another process of this user can join: it sees each change of the item's text, and
/// can poke a text into it. Only the first client can join: the service stops listening then.
class TextService {
public:
    struct Handlers {
        std::function<void(const QString&)> onPoke; ///< the item has that text now
        std::function<void()> onLeave;              ///< the client is gone, or broke the protocol
    };

    TextService(QString item, Handlers handlers);

    /// Starts to listen.
    /// @param folder  in which the client looks for it
    /// @param topic   application and topic, separated by a bar
    /// Error 75 when there is no room for a socket.
    void Offer(const text::NativePath& folder, const QString& topic);

    bool IsJoined() const { return isJoined_; }

    /// Sets the item's text; the client is told.
    void SetText(const QString& text);

private:
    void Accept();
    void Read();
    void Hear(const QString& text);
    void Send();

    QString item_;
    Handlers handlers_;
    QString text_;
    bool isJoined_ = false;
    LineReader lines_;
    QLocalServer server_;
    std::unique_ptr<QLocalSocket> client_;
};

} // namespace velmora::link
