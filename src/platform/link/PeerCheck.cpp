// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/PeerCheck.h"

#include <QLocalSocket>

#include <sys/socket.h>
#include <unistd.h>

namespace velmora::link {

bool IsOfThisUser(const QLocalSocket& socket)
{
    ucred peer {};
    socklen_t size = sizeof peer;
    const int descriptor = static_cast<int>(socket.socketDescriptor());
    return getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0
        && peer.uid == geteuid();
}

} // namespace velmora::link
