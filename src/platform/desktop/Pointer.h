// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <Qt>

#include <optional>

namespace velmora::desktop {

/// Gives all windows of the program one mouse pointer until the next call; without a pointer, each
/// widget has its own again. Calls don't nest.
void SetMousePointer(std::optional<Qt::CursorShape> wanted);

/// The pointer that is safe to use: Qt sometimes crashes on Wayland when an animated one is taken
/// back between two of its pictures.
/// @param windowSystem  Qt's name for it, such as "xcb" or "wayland"
std::optional<Qt::CursorShape> ShapeFor(
    std::optional<Qt::CursorShape> wanted, const QString& windowSystem);

} // namespace velmora::desktop
