// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace velmora::unicode {

/// Bytes from outside as a text that a terminal only shows: what it would obey (control characters,
/// line breaks included) and what turns the direction of writing is shown by a picture or U+FFFD,
/// as is what is no UTF-8.
std::string HarmlessText(std::string_view bytes);

} // namespace velmora::unicode
