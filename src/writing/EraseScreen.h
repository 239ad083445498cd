// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/EventPump.h"
#include "shell/MessageDoor.h"

#include <QString>
#include <QStringView>

namespace velmora::writing {

/// The title of every box of an erase.
inline constexpr QStringView kEraseTitle = u"Effacement d'un média réinscriptible";

/// What an erase shows and asks: the page of the configuration, or the terminal. What only a page
/// has does nothing on a screen without one.
class EraseScreen : public runtime::EventPump, public shell::MessageDoor {
public:
    /// The recorder chosen, by its place in the list of recorders (Combo1); kNoRecorder for none.
    virtual qint16 RecorderPlace() const = 0;

    /// Should the erase end, whatever becomes of the disc? A page has no button for it, but the
    /// program may be ended from outside.
    virtual bool WantsToStop() const { return false; }

    /// Asks whether the whole disc is erased, and not only what tells of its contents: a box with
    /// Yes and No, unless the screen has its own way.
    virtual bool AskForFullErase();

    /// Shows the progress of the erase (lblErase).
    virtual void SetStatus(const QString& text) = 0;
    virtual void ShowStatus(bool /*isVisible*/) { }
    /// The same in figures; a total of 0 means unknown.
    virtual void ShowTime(qint32 /*elapsedSeconds*/, qint32 /*estimatedTotalSeconds*/) { }

    /// From here on mouse input reaches only the button of the erase (SetCapture) / is free again
    /// (ReleaseCapture).
    virtual void CaptureMouse() { }
    virtual void ReleaseMouse() { }
};

} // namespace velmora::writing
