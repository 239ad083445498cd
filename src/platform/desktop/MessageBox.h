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
    QString advice {};       ///< advice below the text; empty for none
};

/// Shows a message box with French buttons over the program's window, and returns when it is
/// answered. The first button, Ok or Yes, is the default, whatever order the desktop shows them in.
/// Closing the box, or the escape key, is Cancel or No, or Ok if that is the only button.
/// @param text  shown verbatim: markup isn't interpreted
BoxAnswer ShowMessageBox(const QString& text, const BoxLook& look, const QString& title);

} // namespace velmora::desktop
