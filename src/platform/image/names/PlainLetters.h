// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velmora::image {

/// The letter or digit that a Latin letter stands on, without its accents ('é' gives 'e'); several
/// for ligatures. Empty for a combining accent; the code point itself is outside the tables when
/// nullptr.
const char* PlainLetters(char32_t codePoint);

} // namespace velmora::image
