// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/MessageDoor.h"

namespace velmora::dialogs {

/// Messages and questions in boxes on the desktop.
class DesktopMessages final : public shell::MessageDoor {
public:
    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override;
    shell::MessageAnswer MsgBoxWithAdvice(
        const QString& text, qint32 style, const QString& title, const QString& advice) override;
};

} // namespace velmora::dialogs
