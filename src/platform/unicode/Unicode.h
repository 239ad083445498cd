// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace velmora::unicode {

/// Marks a byte that is not part of any UTF-8 character: above every code point.
inline constexpr char32_t kUndecodable = 0x110000;

/// Whether a text has ASCII characters only.
inline bool IsAscii(std::string_view text)
{
    unsigned all = 0; // without a branch for each character
    for (const char c : text) {
        all |= static_cast<unsigned char>(c);
    }
    return all < 0x80;
}

/// NextCodePoint of a character that is not ASCII.
char32_t NextWideCodePoint(std::string_view text, std::size_t& at);

/// The next code point of a UTF-8 text; `at` moves past it. A byte that isn't part of a valid
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

/// AppendUtf8 of a code point that is not ASCII.
void AppendWideUtf8(std::string& text, char32_t codePoint);

/// Appends a code point in UTF-8.
inline void AppendUtf8(std::string& text, char32_t codePoint)
{
    if (codePoint >= 0x80) {
        AppendWideUtf8(text, codePoint);
    } else {
        text += static_cast<char>(codePoint);
    }
}

/// AppendUtf16 of a code point beyond the basic plane.
void AppendSurrogates(std::string& text, char32_t codePoint);

/// Appends a code point in UTF-16, high byte first; two units beyond the basic plane.
inline void AppendUtf16(std::string& text, char32_t codePoint)
{
    if (codePoint >= 0x10000) {
        AppendSurrogates(text, codePoint);
    } else {
        const std::array unit {
            static_cast<char>(codePoint >> 8U), static_cast<char>(codePoint & 0xFFU)};
        text.append(unit.data(), unit.size());
    }
}

/// A text for display: valid UTF-8, each undecodable byte as U+FFFD.
std::string ReadableText(std::string_view text);

/// The text of UTF-16 units, high byte first, in UTF-8.
std::string FromUtf16(std::string_view units);

} // namespace velmora::unicode
