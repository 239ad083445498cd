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

/// The progress bars of a run, 0 to 100 each.
enum class ProgressOf : qint8 {
    Run,  ///< the whole run (Corvane7ProgressBar1)
    File, ///< one file that takes a while (FileBar)
};

/// The buttons of the burn page (BurnButton).
enum class BurnButton : qint8 { BurnDisc, MakeIsoFile, Stop };

/// The endless bar while the run waits for a drive (Corvane7BarWait1).
enum class WaitBar : qint8 {
    Running,
    Hidden, ///< it keeps moving, invisibly
    Stopped,
};

/// What an ISO file is needed for.
enum class IsoFileUse : qint8 { Burn, Write };

/// All that a run shows, asks or waits for: the burn page of the window, or the terminal.
///
/// Every call takes effect at once, but is only visible when events are pumped. Messages are
/// MsgBox, the pointer is SetMousePointer, and Pump handles the pending events. What only a page
/// has does nothing on a screen without one.
class BurnScreen : public runtime::EventPump, public shell::PointerDoor, public shell::MessageDoor {
public:
    /// Adds a line to the log (ShowLog without LogClear); an empty text adds none.
    virtual void AddLogLine(const QString& line) = 0;
    /// The same, but a page empties its log before (ShowLog with LogClear).
    virtual void StartLog(const QString& firstLine) { AddLogLine(firstLine); }

    /// Says what the run is doing (Label14).
    virtual void SetStatus(const QString& text) = 0;

    virtual void SetProgress(ProgressOf /*what*/, qint16 /*percent*/) { }
    virtual void ShowProgress(ProgressOf /*what*/, bool /*isVisible*/) { }

    /// The run's progress with its disc; each call gives all figures, the last one is Idle.
    virtual void ShowFigures(const RunFigures& /*figures*/) { }

    virtual void ShowBurnButton(BurnButton button, bool isVisible) = 0;

    /// Asks for patience while the drive examines its disc (Frame3DWait).
    virtual void ShowDriveWait(bool isVisible) = 0;
    virtual void SetWaitBar(WaitBar /*state*/) { }

    /// The system's beep.
    virtual void Beep() { }

    /// Asks for another disc instead of one that was refused: a box with Yes and No, unless the
    /// screen has its own way.
    /// @param refusal  why, and the question
    /// @param advice   what can be done in the window about the refused disc; empty for nothing
    /// @return  whether to look at the disc that is in the drive now
    virtual bool AskForAnotherDisc(const QString& refusal, const QString& advice);

    /// Asks for an ISO file (GetIsoFileName). An existing one is deleted when the user agrees to
    /// overwrite it.
    /// @return  empty when the user gave up
    virtual text::ProgramPath AskIsoFile(IsoFileUse use) = 0;

    /// Shows the burn page instead of the page of the ISO image and the configuration.
    virtual void ShowIsoRunPage() { }

    /// From here on mouse input reaches only the stop button (SetCapture) / is free again
    /// (ReleaseCapture). The button may be hidden meanwhile, which frees the mouse too.
    virtual void CaptureMouse() { }
    virtual void ReleaseMouse() { }
};

} // namespace velmora::writing
