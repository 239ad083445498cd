// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace velmora::terminal {

/// How a command ended, as its caller sees it.
enum class ExitCode : std::uint8_t {
    Done = 0,       ///< everything was done
    Failed = 1,     ///< nothing was made
    WrongUsage = 2, ///< the command line can't be understood
    Incomplete
    = 3,        ///< the image was made, but an entry of the folder is in none of its file systems
    NoDisc = 4, ///< the drive that was asked about its disc is empty
    Stopped = 130, ///< stopped by a signal; nothing was made
};

} // namespace velmora::terminal
