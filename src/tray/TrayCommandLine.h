// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tray/TrayRequest.h"

#include <string>
#include <variant>
#include <vector>

namespace velmora::tray {

using TrayCommand = std::variant<TrayRequest, TrayReply>;

/// Understands a command line.
/// @param arguments  without the program's name
TrayCommand ParseTrayCommandLine(std::vector<std::string> arguments);

} // namespace velmora::tray
