// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/ExitCode.h"
#include "terminal/console/JobEvents.h"

#include <cstdint>
#include <optional>
#include <string>

namespace velmora::terminal {

/// How a screen shows progress.
enum class ProgressStyle : std::uint8_t {
    OneLine,    ///< a terminal: one line, rewritten in place
    PlainLines, ///< a file or a pipe: a line at the start and the end of each phase
};

/// Where a command shows what it does. Lines are UTF-8, harmless to a terminal, without a trailing
/// line feed.
class TerminalScreen {
public:
    TerminalScreen() = default;
    virtual ~TerminalScreen() = default;
    TerminalScreen(const TerminalScreen&) = delete;
    TerminalScreen& operator=(const TerminalScreen&) = delete;
    TerminalScreen(TerminalScreen&&) = delete;
    TerminalScreen& operator=(TerminalScreen&&) = delete;

    virtual ProgressStyle Style() const = 0;

    /// A line of the result, for the user or for another program.
    virtual void Result(const std::string& line) = 0;
    /// A line about an event or a failure.
    virtual void Notice(const std::string& line) = 0;
    /// The current text of the line of progress; empty removes it. Only with
    /// ProgressStyle::OneLine.
    virtual void Progress(const std::string& line) = 0;
    /// A line of a question that the user has to answer.
    virtual void Question(const std::string& line) { Notice(line); }

    /// An event by its meaning. A screen that shows all lines ignores it.
    virtual void Tell(const JobEvent& /*event*/) { }
};

/// Reports what went wrong, in a French sentence.
/// @param number  of the error, if it has one
/// @return Failed
inline ExitCode Fail(
    TerminalScreen& screen, const std::string& text, std::optional<qint32> number = {})
{
    screen.Notice("Erreur : " + text);
    screen.Tell(Failure {.text = text, .number = number});
    return ExitCode::Failed;
}

/// Reports a remark on the job as a whole, in French.
inline void Warn(TerminalScreen& screen, RemarkKind kind, const std::string& text)
{
    screen.Notice(text);
    screen.Tell(JobRemark {.kind = kind, .text = text});
}

/// Reports that the drive has no disc.
/// @return NoDisc
inline ExitCode FailWithoutDisc(TerminalScreen& screen)
{
    const std::string text = "Le lecteur est vide : mettez-y un disque, puis recommencez.";
    screen.Notice(text);
    screen.Tell(Failure {.text = text});
    return ExitCode::NoDisc;
}

} // namespace velmora::terminal
