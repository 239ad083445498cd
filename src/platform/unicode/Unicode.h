// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora::unicode {

/// Stands for a byte that is not part of any UTF-8 character: above every code point.
inline constexpr char32_t kUndecodable = 0x110000;

/// NextCodePoint of a character that is not ASCII.
char32_t NextWideCodePoint(std::string_view text, std::size_t& at);

/// The next code point of a UTF-8 text; `at` moves behind it. A byte that belongs to no valid
/// character (overlong forms and surrogates included) gives kUndecodable and moves by one.
inline char32_t NextCodePoint(std::string_view text, std::size_t& at)
{
    const auto lead = static_cast<unsigned char>(text[at]);
    if (lead >= 0x80) {
        return NextWideCodePoint(text, at);
    }
    ++at;
    return lead;
}

/// Appends a code point in UTF-8.
void AppendUtf8(std::string& text, char32_t codePoint);

/// Appends a code point in UTF-16, high byte first; two units beyond the basic plane.
void AppendUtf16(std::string& text, char32_t codePoint);

/// A text for the eye: valid UTF-8, each undecodable byte as U+FFFD.
std::string ReadableText(std::string_view text);

/// The text of UTF-16 units, high byte first, in UTF-8.
std::string FromUtf16(std::string_view units);

} // namespace velmora::unicode
