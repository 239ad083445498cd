// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "runtime/EventPump.h"
#include "shell/MessageDoor.h"
#include "shell/PointerDoor.h"
#include "text/Paths.h"
#include "writing/RunFigures.h"

#include <QString>

namespace velmora::writing {

/// What a run tells the progress of, 0 to 100 each.
enum class ProgressOf : qint8 {
    Run,  ///< the whole run (Corvane7ProgressBar1)
    File, ///< one file that takes a while (FileBar)
};

/// The buttons of the burn page (BurnButton).
enum class BurnButton : qint8 { BurnDisc, MakeIsoFile, Stop };

/// The bar that moves without an end while a drive is waited for (Corvane7BarWait1).
enum class WaitBar : qint8 {
    Running,
    Hidden, ///< it goes on moving unseen
    Stopped,
};

/// What an ISO file is asked for.
enum class IsoFileUse : qint8 { Burn, Write };

/// All that a run shows, asks or waits for: the burn page of the window, or the terminal.
///
/// Every call takes effect at once, but is only seen when events are pumped. Questions are MsgBox,
/// the pointer is SetMousePointer, and Pump handles the events that wait. What only a page has does
/// nothing on a screen without one.
class BurnScreen : public runtime::EventPump, public shell::PointerDoor, public shell::MessageDoor {
public:
    /// Empties the log if LogClear, then adds a line to it; an empty text adds none.
    virtual void ShowLog(const QString& strLog, bool LogClear) = 0;

    /// Says what the run does now (Label14).
    virtual void SetStatus(const QString& text) = 0;

    virtual void SetProgress(ProgressOf /*what*/, qint16 /*percent*/) { }
    virtual void ShowProgress(ProgressOf /*what*/, bool /*isVisible*/) { }

    /// How far the run is with its disc; each call tells all of it anew, the last one is Idle.
    virtual void ShowFigures(const RunFigures& /*figures*/) { }

    virtual void ShowBurnButton(BurnButton button, bool isVisible) = 0;

    /// Asks for patience while the drive looks at its disc (Frame3DWait).
    virtual void ShowDriveWait(bool isVisible) = 0;
    virtual void SetWaitBar(WaitBar /*state*/) { }

    /// The system's beep.
    virtual void Beep() { }

    /// Asks for an ISO file (GetIsoFileName). The present one is deleted when the user agrees that
    /// it is written over.
    /// @return  empty when the user gave up
    virtual text::ProgramPath AskIsoFile(IsoFileUse use) = 0;

    /// The burn page comes into view in place of the page of the ISO image and the configuration.
    virtual void ShowIsoRunPage() { }

    /// From here on mouse input reaches only the stop button (SetCapture) / is free again
    /// (ReleaseCapture). The button may be hidden meanwhile, which frees the mouse too.
    virtual void CaptureMouse() { }
    virtual void ReleaseMouse() { }
};

} // namespace velmora::writing
