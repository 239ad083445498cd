// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

namespace velmora::desktop {

/// Tells screen readers what the toolkit leaves open: a window of ours is a window, no filler, and
/// a button that we draw is a button that can be pressed. To be called once, before any window.
void ServeScreenReaders();

/// Has a screen reader say something at once, wherever its user is.
/// @param speaker  the widget that it is about; its description says the same until the next time
void Announce(QWidget& speaker, const QString& words);

} // namespace velmora::desktop
