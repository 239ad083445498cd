// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "unicode/HarmlessText.h"

#include "unicode/Unicode.h"

namespace velmora::unicode {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// Marks that change the text direction, and the separators that break a line.
bool RedirectsText(char32_t c)
{
    return (c >= 0x200E && c <= 0x200F) || (c >= 0x2028 && c <= 0x202E)
        || (c >= 0x2066 && c <= 0x2069) || c == 0x061C;
}

char32_t Harmless(char32_t c)
{
    constexpr char32_t kControlPictures = 0x2400;
    constexpr char32_t kDeletePicture = 0x2421;
    if (c < 0x20) {
        return kControlPictures + c;
    }
    if (c == 0x7F) {
        return kDeletePicture;
    }
    if (c >= 0x80 && c < 0xA0) {
        return kReplacement; // some terminals obey these as they obey ESC
    }
    if (c == kUndecodable || RedirectsText(c)) {
        return kReplacement;
    }
    return c;
}

} // namespace

std::string HarmlessText(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        AppendUtf8(text, Harmless(NextCodePoint(bytes, at)));
    }
    return text;
}

} // namespace velmora::unicode
