// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velmora::desktop {

enum class BoxButtons { Ok, OkCancel, YesNo };
enum class BoxIcon { None, Stop, Question, Exclamation, Information };
enum class BoxAnswer { Ok, Cancel, Yes, No };

/// What a message box shows.
struct BoxLook {
    BoxButtons buttons = BoxButtons::Ok;
    BoxIcon icon = BoxIcon::None;
    bool staysOnTop = false; ///< of the other programs' windows too
};

/// Shows a message box with French buttons over the active window, and returns when it is answered.
/// Closing it, or the escape key, is Cancel, or Ok where that is the only button; a box with Yes
/// and No can't be closed without an answer.
/// @param text  shown to the letter: nothing in it is markup
BoxAnswer ShowMessageBox(const QString& text, const BoxLook& look, const QString& title);

} // namespace velmora::desktop
