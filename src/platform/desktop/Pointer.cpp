// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace velmora::desktop {

std::optional<Qt::CursorShape> ShapeFor(
    std::optional<Qt::CursorShape> wanted, const QString& windowSystem)
{
    const Qt::CursorShape shape = wanted.value_or(Qt::ArrowCursor);
    const bool isAnimated = shape == Qt::WaitCursor || shape == Qt::BusyCursor;
    return isAnimated && windowSystem.startsWith(u"wayland") ? std::nullopt : wanted;
}

void SetMousePointer(std::optional<Qt::CursorShape> wanted)
{
    const auto shape = ShapeFor(wanted, QGuiApplication::platformName());
    if (QGuiApplication::overrideCursor() != nullptr) {
        QGuiApplication::restoreOverrideCursor();
    }
    if (shape) {
        QGuiApplication::setOverrideCursor(QCursor(*shape));
    }
}

} // namespace velmora::desktop
