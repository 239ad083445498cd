// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

namespace velmora::desktop {

/// Tells screen readers the roles that Qt doesn't set: our windows are windows, not fillers, and a
/// button that we draw can be pressed. Call it once, before any window.
void ServeScreenReaders();

/// Makes a screen reader say something at once, wherever its focus is.
/// @param speaker  the widget that it is about; its description says the same until the next time
void Announce(QWidget& speaker, const QString& words);

} // namespace velmora::desktop
