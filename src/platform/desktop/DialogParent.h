// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace velmora::desktop {

/// The window that a new dialog belongs to: the open dialog, else the active window, else the
/// program's visible window, even if another program has the keyboard. Null if there is none yet.
QWidget* DialogParent();

} // namespace velmora::desktop
