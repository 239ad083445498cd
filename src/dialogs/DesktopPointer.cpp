// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/DesktopPointer.h"

#include "desktop/Pointer.h"

namespace velmora::dialogs {

void DesktopPointer::SetMousePointer(shell::MousePointer pointer)
{
    switch (pointer) {
    case shell::MousePointer::Default:
        desktop::SetMousePointer(std::nullopt);
        break;
    case shell::MousePointer::Arrow:
        desktop::SetMousePointer(Qt::ArrowCursor);
        break;
    case shell::MousePointer::Hourglass:
        desktop::SetMousePointer(Qt::WaitCursor);
        break;
    }
}

} // namespace velmora::dialogs
