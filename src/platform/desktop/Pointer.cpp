// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace velmora::desktop {

void SetMousePointer(std::optional<Qt::CursorShape> shape)
{
    if (QGuiApplication::overrideCursor() != nullptr) {
        QGuiApplication::restoreOverrideCursor();
    }
    if (shape) {
        QGuiApplication::setOverrideCursor(QCursor(*shape));
    }
}

} // namespace velmora::desktop
