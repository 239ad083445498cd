// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Qt>

#include <optional>

namespace velmora::desktop {

/// Gives all windows of the program one mouse pointer until the next call; none: each widget has
/// its own again. Calls don't nest.
void SetMousePointer(std::optional<Qt::CursorShape> shape);

} // namespace velmora::desktop
