// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/ProgramState.h"
#include "terminal/console/ConsoleMessages.h"
#include "terminal/disc/BurnProgress.h"
#include "terminal/disc/DiscContext.h"
#include "text/Paths.h"
#include "writing/BurnScreen.h"

#include <QString>

namespace velmora::terminal {

/// The burn page as lines of a terminal. Each log entry of a run is a line; the line of progress
/// shows the drive's reports during a write, and the status line otherwise. Pointer and buttons
/// have no counterpart: Ctrl-C is the stop button, whenever that is visible.
class BurnConsole final : public writing::BurnScreen {
public:
    BurnConsole(const DiscContext& context, Assent assent, shell::ProgramState& state);
    ~BurnConsole() override;
    BurnConsole(const BurnConsole&) = delete;
    BurnConsole& operator=(const BurnConsole&) = delete;
    BurnConsole(BurnConsole&&) = delete;
    BurnConsole& operator=(BurnConsole&&) = delete;

    /// The answer to the question for an ISO file.
    void SetIsoFile(const text::ProgramPath& path) { isoFile_ = path; }
    /// How long the drive wrote.
    std::chrono::milliseconds WriteDuration() const { return progress_.Duration(); }

    void AddLogLine(const QString& line) override;
    void SetStatus(const QString& text) override;
    void ShowFigures(const writing::RunFigures& figures) override;
    void ShowBurnButton(writing::BurnButton button, bool isVisible) override;
    void ShowDriveWait(bool isVisible) override;
    bool AskForAnotherDisc(const QString& refusal, const QString& advice) override;
    text::ProgramPath AskIsoFile(writing::IsoFileUse) override { return isoFile_; }
    void SetMousePointer(shell::MousePointer) override { }
    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override;
    void Pump() override;

private:
    void Hear(const drive::WriteProgress& progress);
    void HearStop();

    const DiscContext& context_;
    shell::ProgramState& state_;
    ConsoleMessages messages_;
    BurnProgress progress_;
    text::ProgramPath isoFile_;
    bool canStop_ = false;
    bool hasStopped_ = false;
    SteadyTime statusShown_ {};
};

} // namespace velmora::terminal
