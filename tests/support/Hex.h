// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace velmora::test {

/// Bytes as hexadecimal digits, a blank between them.
inline std::string Hex(std::string_view bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!text.empty()) text += ' ';
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 15U];
    }
    return text;
}

} // namespace velmora::test
