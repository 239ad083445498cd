// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace velmora::terminal {

/// How a command ended, as its caller sees it.
enum class ExitCode : std::uint8_t {
    Done = 0,       ///< everything was done; a burned disc was read back unless declined
    Failed = 1,     ///< nothing was made, or the disc is unusable
    WrongUsage = 2, ///< the command line can't be understood
    /// The image or the disc was made, but an entry of the folder isn't in it, what was burned
    /// changed meanwhile, or nothing could be compared.
    Incomplete = 3,
    NoDisc = 4,    ///< the drive is empty
    Stopped = 130, ///< stopped by a signal; no image was made, a disc that was begun is unusable
};

} // namespace velmora::terminal
