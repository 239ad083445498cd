// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/TextService.h"

#include "link/LinkFolder.h"
#include "link/PeerCheck.h"
#include "runtime/RuntimeError.h"

#include <utility>

namespace velmora::link {

TextService::TextService(QString item, Handlers handlers)
    : item_(std::move(item))
    , handlers_(std::move(handlers))
{
    // With access options the socket gets its name only when it listens.
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { Accept(); });
}

void TextService::Offer(const text::NativePath& folder, const QString& topic)
{
    if (!server_.listen(SocketName(folder, topic))) {
        throw runtime::RuntimeError(runtime::error::kPathAccess);
    }
}

void TextService::SetText(const QString& text)
{
    text_ = text;
    if (isJoined_) {
        Send();
    }
}

void TextService::Accept()
{
    std::unique_ptr<QLocalSocket> newcomer(server_.nextPendingConnection());
    if (!newcomer || !IsOfThisUser(*newcomer)) {
        return;
    }
    newcomer->setParent(nullptr);
    client_ = std::move(newcomer);
    server_.close();
    QLocalSocket* client = client_.get();
    QObject::connect(client, &QLocalSocket::readyRead, client, [this] { Read(); });
    QObject::connect(client, &QLocalSocket::disconnected, client, [this] { handlers_.onLeave(); });
    Read();
}

void TextService::Read()
{
    const QStringList texts = lines_.Take(client_->readAll());
    for (const QString& text : texts) {
        Hear(text);
        if (client_->state() != QLocalSocket::ConnectedState) {
            return;
        }
    }
    if (lines_.IsBroken()) {
        client_->abort();
    }
}

void TextService::Hear(const QString& text)
{
    if (isJoined_) {
        text_ = text;
        handlers_.onPoke(text);
    } else if (text == item_) {
        isJoined_ = true;
        Send();
    } else {
        client_->abort();
    }
}

void TextService::Send()
{
    client_->write(LineOf(text_));
    client_->flush();
}

} // namespace velmora::link
