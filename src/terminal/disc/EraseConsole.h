// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/ConsoleMessages.h"
#include "terminal/disc/DiscContext.h"
#include "writing/EraseScreen.h"

#include <QString>

namespace velmora::terminal {

/// What an erase shows and asks, as lines of a terminal. The run's final message is held back: it
/// reports even a failed erase as a success, and the job knows from the report what became of the
/// disc.
class EraseConsole final : public writing::EraseScreen {
public:
    /// @param recorderPlace  in the list of recorders, from 0 on
    EraseConsole(const DiscContext& context, Assent assent, bool erasesAll, qint16 recorderPlace);

    qint16 RecorderPlace() const override { return recorderPlace_; }
    /// The command line has told, and the answer is shown.
    bool AskForFullErase() override;
    void SetStatus(const QString& text) override;
    void ShowTime(qint32 elapsedSeconds, qint32 estimatedTotalSeconds) override;
    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override;
    void Pump() override;
    bool WantsToStop() const override;

private:
    const DiscContext& context_;
    ConsoleMessages messages_;
    bool erasesAll_;
    qint16 recorderPlace_;
};

} // namespace velmora::terminal
