// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/EventPump.h"
#include "shell/MessageDoor.h"

#include <QString>

namespace velmora::writing {

/// What an erase shows and asks: the page of the configuration, or the terminal.
class EraseScreen : public runtime::EventPump, public shell::MessageDoor {
public:
    /// The place of the recorder chosen in Combo1, -1 = none.
    virtual qint16 Combo1ListIndex() const = 0;

    /// The label that tells how far the erase is.
    virtual void SetlblErase(const QString& caption) = 0;
    virtual void ShowlblErase(bool isVisible) = 0;

    /// From here on mouse input reaches only EraseDiscbutton / is free again.
    virtual void SetCapture() = 0;
    virtual void ReleaseCapture() = 0;
};

} // namespace velmora::writing
