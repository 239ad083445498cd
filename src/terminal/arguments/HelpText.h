// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace velmora::terminal {

/// What --help says without a command.
std::string_view GeneralHelp();

/// What --help says about the command "image".
std::string_view ImageHelp();

/// What --help says about the commands "burn", "burn-iso" and "erase".
std::string_view BurnHelp();
std::string_view IsoBurnHelp();
std::string_view EraseHelp();

/// What --help says about the commands "recorders", "media" and "report".
std::string_view RecordersHelp();
std::string_view MediaHelp();
std::string_view ReportHelp();
/// What --help says about the commands "check" and "burns".
std::string_view CheckHelp();
std::string_view BurnsHelp();

} // namespace velmora::terminal
