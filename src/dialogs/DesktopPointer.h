// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/PointerDoor.h"

namespace velmora::dialogs {

/// The mouse pointer of all windows of the program.
class DesktopPointer final : public shell::PointerDoor {
public:
    void SetMousePointer(shell::MousePointer pointer) override;
};

} // namespace velmora::dialogs
