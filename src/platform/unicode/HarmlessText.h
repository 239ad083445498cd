// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace velmora::unicode {

/// Bytes from outside as a text that is safe for a terminal: control characters (including line
/// breaks) and marks that change the text direction are replaced by a picture or U+FFFD, as are
/// bytes that aren't UTF-8.
std::string HarmlessText(std::string_view bytes);

} // namespace velmora::unicode
