// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/TextLink.h"

#include "link/LinkFolder.h"
#include "link/PeerCheck.h"
#include "runtime/RuntimeError.h"

#include <QDeadlineTimer>

namespace velmora::link {

using runtime::RuntimeError;

TextLink::TextLink(std::chrono::milliseconds answerLimit)
    : answerLimit_(answerLimit)
{
    QObject::connect(&socket_, &QLocalSocket::readyRead, &socket_, [this] { Read(); });
}

void TextLink::SetLinkMode(LinkMode mode)
{
    Close();
    if (mode == LinkMode::Automatic) {
        Open();
    }
}

void TextLink::LinkPoke()
{
    if (!isJoined_ || socket_.state() != QLocalSocket::ConnectedState) {
        throw RuntimeError(runtime::error::kNoLinkChannel);
    }
    Send(text_);
}

void TextLink::Open()
{
    const QDeadlineTimer deadline(answerLimit_);
    socket_.connectToServer(SocketName(folder_, topic_));
    if (!socket_.waitForConnected(static_cast<int>(deadline.remainingTime()))
        || !IsOfThisUser(socket_)) {
        Close();
        throw RuntimeError(runtime::error::kNoLinkPartner);
    }
    Send(item_);
    while (!isJoined_ && socket_.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) { }
    if (!isJoined_) {
        const bool isSilent = socket_.state() == QLocalSocket::ConnectedState;
        Close();
        throw RuntimeError(isSilent ? runtime::error::kLinkTimeout : runtime::error::kLinkRefused);
    }
}

void TextLink::Close()
{
    socket_.abort();
    lines_ = {};
    isJoined_ = false;
}

void TextLink::Send(const QString& text)
{
    // At once: the program may end, or block, before it handles events again.
    socket_.write(LineOf(text));
    socket_.flush();
}

void TextLink::Read()
{
    const QStringList texts = lines_.Take(socket_.readAll());
    if (!texts.isEmpty()) {
        text_ = texts.last();
        isJoined_ = true;
    }
    if (lines_.IsBroken()) {
        Close();
    }
}

} // namespace velmora::link
