// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <QString>

#include <span>

namespace velmora::shell {

/// What the program was started with.
struct CommandString {
    text::ProgramPath SourceFolder; ///< empty when none was given
    QString DiscNameArgument;       ///< empty when none was given
};

/// Reads a command string: a folder and, after " -n ", " -N " or "|", the disc's name. All double
/// quotes are dropped; anything after another separator is ignored.
CommandString ParseCommandString(QString command);

/// Reads the arguments of a process (without the program's name), joined by one blank each. A first
/// argument that names a folder is that folder, whatever characters its name has, if only the
/// disc's name follows. The desktop's name of a blank disc alone, burn:///, names no folder. The
/// folder comes as a program path, the disc's name as it was typed.
CommandString ReadArguments(std::span<const char* const> arguments);

} // namespace velmora::shell
