// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/EventPump.h"
#include "shell/MessageDoor.h"
#include "shell/PointerDoor.h"

#include <QString>

namespace velmora::writing {

/// The bars of the burn page, 0 to 100 each.
enum class RunBar : qint8 {
    Corvane7ProgressBar1, ///< the whole run
    FileBar,              ///< one file that takes a while
};

/// The buttons of the burn page (BurnButton).
enum class BurnButton : qint8 { BurnDisc, MakeIsoFile, Stop };

/// All that a run shows, asks or waits for: the burn page of the window, or the terminal.
///
/// Every call takes effect at once, but is only seen when events are pumped. Questions are MsgBox,
/// the pointer is SetMousePointer, and Pump handles the events that wait.
class BurnScreen : public runtime::EventPump, public shell::PointerDoor, public shell::MessageDoor {
public:
    /// Empties the log if LogClear, then adds a line to it; an empty text adds none.
    virtual void ShowLog(const QString& strLog, bool LogClear) = 0;

    /// The caption of the status line.
    virtual QString Label14() const = 0;
    virtual void SetLabel14(const QString& caption) = 0;

    virtual void SetBarValue(RunBar bar, qint16 value) = 0;
    virtual void ShowBar(RunBar bar, bool isVisible) = 0;

    virtual void ShowBurnButton(BurnButton button, bool isVisible) = 0;

    /// The panel that asks for patience, and the bar on it that moves without an end.
    virtual void ShowFrame3DWait(bool isVisible) = 0;
    virtual void ShowCorvane7BarWait1(bool isVisible) = 0;
    virtual void RunCorvane7BarWait1(bool isRunning) = 0;

    /// The system's beep.
    virtual void Beep() = 0;

    /// Asks for an ISO file: the one to write (true), whose present file is deleted when the user
    /// agrees, or the one to burn.
    /// @return  program path; empty when the user gave up
    virtual QString GetIsoFileName(bool SaveMode) = 0;

    /// The burn page comes into view in place of the page of the ISO image and the configuration.
    virtual void ShowIsoRunPage() = 0;

    /// From here on mouse input reaches only the stop button / is free again. The button may be
    /// hidden meanwhile, which frees the mouse too.
    virtual void SetCapture() = 0;
    virtual void ReleaseCapture() = 0;
};

} // namespace velmora::writing
