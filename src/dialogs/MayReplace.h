// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::shell {
class MessageDoor;
}

namespace velmora::dialogs {

/// Tells that the file chosen exists, and asks whether it may be replaced.
/// @param question  the box's last line
bool MayReplace(shell::MessageDoor& messages, const QString& question);

} // namespace velmora::dialogs
