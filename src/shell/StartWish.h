// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <span>

namespace velmora::shell {

/// What the user starts the window for.
enum class StartKind : quint8 {
    Folder,    ///< the usual: what is left of the arguments is a command string
    BurnImage, ///< --burn-iso, with a file or without
    Erase,     ///< --erase
    Help,      ///< -h, --help
    Version,   ///< --version
};

struct StartWish {
    StartKind kind = StartKind::Folder;
    text::ProgramPath image {}; ///< of BurnImage, as a whole path; may be empty
};

/// Reads the arguments of a process, without the program's name. An option counts only if it is the
/// only argument, so that a folder and a disc may have any name when there are others.
StartWish ReadStartWish(std::span<const char* const> arguments);

} // namespace velmora::shell
