// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace velmora::desktop {

/// The window that a new dialog belongs to: the dialog that is open, else the active window, else
/// the program's window that can be seen, though another program has the keyboard. Null before
/// there is one.
QWidget* DialogParent();

} // namespace velmora::desktop
