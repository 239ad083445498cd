// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/ExitCode.h"

#include <string>
#include <string_view>

namespace velmora::terminal {

/// A command line that needs no job: a text to show and how to end.
struct Reply {
    ExitCode code;          ///< Done for help and version, WrongUsage for a mistake
    std::string text;       ///< French, several lines
    std::string mistake {}; ///< what can't be understood, a French sentence; empty for none
};

/// A command line that can't be understood.
/// @param text     a French sentence
/// @param command  whose help tells more; empty: that of all
Reply WrongUsage(const std::string& text, std::string_view command = {});

/// A value that isn't one of those that an option takes.
Reply NotAmong(std::string_view command,
    std::string_view option,
    const std::string& value,
    std::string_view choices);

} // namespace velmora::terminal
