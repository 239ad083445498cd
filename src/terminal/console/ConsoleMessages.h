// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/MessageDoor.h"
#include "terminal/console/Assent.h"
#include "terminal/console/LineSource.h"
#include "terminal/console/TerminalScreen.h"

#include <string>
#include <vector>

namespace velmora::terminal {

/// Message boxes as lines of a terminal. Without an answer, and on a stop, nothing is agreed to.
class ConsoleMessages final : public shell::MessageDoor {
public:
    ConsoleMessages(TerminalScreen& screen, LineSource& input, Assent assent);

    /// A text that only informs doesn't wait, unless it asks the user to do something.
    shell::MessageAnswer MsgBox(const QString& text, qint32 style, const QString& title) override;

    /// Asks for another disc instead of one that was refused. Where nobody is asked, nobody changes
    /// the disc.
    bool AskForAnotherDisc(const QString& refusal);

private:
    void TellFirst(const std::vector<std::string>& lines, RemarkKind kind);
    void Show(const std::vector<std::string>& lines, bool waits);
    shell::MessageAnswer AnswerGiven(qint32 style);
    shell::MessageAnswer AskToConfirm();
    shell::MessageAnswer AskYesOrNo();

    TerminalScreen& screen_;
    LineSource& input_;
    Assent assent_;
};

} // namespace velmora::terminal
