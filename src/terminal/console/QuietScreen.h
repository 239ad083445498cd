// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/TerminalScreen.h"

namespace velmora::terminal {

/// Shows what went wrong, even after a good burn, what changes the exit code, and questions, each
/// as a notice of another screen; nothing else.
class QuietScreen final : public TerminalScreen {
public:
    /// @param screen  must outlive the object
    explicit QuietScreen(TerminalScreen& screen)
        : screen_(screen)
    {
    }

    ProgressStyle Style() const override { return ProgressStyle::PlainLines; }
    void Result(const std::string& /*line*/) override { }
    void Notice(const std::string& /*line*/) override { }
    void Progress(const std::string& /*line*/) override { }
    void Question(const std::string& line) override { screen_.Question(line); }
    void Tell(const JobEvent& event) override;

private:
    TerminalScreen& screen_;
};

} // namespace velmora::terminal
