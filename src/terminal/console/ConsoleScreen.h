// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/TerminalScreen.h"

#include <cstddef>

namespace velmora::terminal {

/// The process' own standard output (results) and standard error (all the rest).
class ConsoleScreen : public TerminalScreen {
public:
    ConsoleScreen();

    ProgressStyle Style() const override { return style_; }
    void Result(const std::string& line) override;
    void Notice(const std::string& line) override;
    void Progress(const std::string& line) override;

private:
    void TakeProgressAway();

    ProgressStyle style_;
    std::size_t shownColumns_ = 0; // of the line of progress now on the terminal
};

} // namespace velmora::terminal
