// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora::shortcut {

/// The address that a link file of the desktop leads to: the key URL of a desktop entry of the type
/// Link (freedesktop.org, Desktop Entry Specification 1.5), unescaped.
/// @return none for any other text
std::optional<std::string> AddressOfDesktopLink(std::string_view entry);

} // namespace velmora::shortcut
