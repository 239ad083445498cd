// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace velmora::drive {

/// The path that a field of the system's mount table encodes (proc_pid_mountinfo(5)). Blanks, tabs,
/// line ends and backslashes are written there as a backslash and three octal digits; a backslash
/// before anything else is literal.
std::string PathInMountTable(std::string_view field);

} // namespace velmora::drive
