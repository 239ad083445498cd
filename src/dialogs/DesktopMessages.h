// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/MessageDoor.h"

namespace velmora::dialogs {

/// Messages and questions in boxes on the desktop.
class DesktopMessages final : public shell::MessageDoor {
public:
    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override;
};

} // namespace velmora::dialogs
