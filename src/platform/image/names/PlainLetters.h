// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velmora::image {

/// The letter or digit that is the base of a Latin letter, without its accents ('é' gives 'e');
/// several for ligatures. Empty for a combining accent; nullptr for a code point outside the
/// tables.
const char* PlainLetters(char32_t codePoint);

} // namespace velmora::image
