// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace velmora::shell {

enum class MousePointer : qint16 { Default = 0, Arrow = 1, Hourglass = 11 };

/// The door to the mouse pointer of the whole program.
class PointerDoor {
public:
    PointerDoor() = default;
    PointerDoor(const PointerDoor&) = delete;
    PointerDoor& operator=(const PointerDoor&) = delete;
    virtual ~PointerDoor() = default;

    /// Sets the pointer until the next call; calls don't nest.
    virtual void SetMousePointer(MousePointer pointer) = 0;
};

} // namespace velmora::shell
