// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DesktopPointer.h"

#include "desktop/Pointer.h"

namespace velmora::dialogs {

void DesktopPointer::SetMousePointer(shell::MousePointer pointer)
{
    switch (pointer) {
    case shell::MousePointer::Default:
    case shell::MousePointer::Arrow: // of the window; its controls have pointers of their own
        desktop::SetMousePointer(std::nullopt);
        break;
    case shell::MousePointer::Hourglass:
        desktop::SetMousePointer(Qt::WaitCursor);
        break;
    }
}

} // namespace velmora::dialogs
