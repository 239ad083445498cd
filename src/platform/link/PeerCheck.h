// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLocalSocket;

namespace velmora::link {

/// Whether the process at the other end of a connected socket runs for the user of this one.
bool IsOfThisUser(const QLocalSocket& socket);

} // namespace velmora::link
