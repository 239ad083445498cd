// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "unicode/Unicode.h"

namespace velmora::unicode {

namespace {

struct Form {
    int length;        // bytes
    char32_t smallest; // below it the form is overlong
};

Form FormOf(unsigned char lead)
{
    if (lead >= 0xC2 && lead <= 0xDF) {
        return {2, 0x80};
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        return {3, 0x800};
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        return {4, 0x10000};
    }
    return {0, 0};
}

} // namespace

char32_t NextWideCodePoint(std::string_view text, std::size_t& at)
{
    const auto lead = static_cast<unsigned char>(text[at++]);
    const Form form = FormOf(lead);
    const std::size_t tail = static_cast<std::size_t>(form.length) - 1;
    if (form.length == 0 || at + tail > text.size()) {
        return kUndecodable;
    }
    char32_t codePoint = lead & (0x7FU >> form.length);
    for (std::size_t i = 0; i < tail; ++i) {
        const auto byte = static_cast<unsigned char>(text[at + i]);
        if ((byte & 0xC0U) != 0x80) {
            return kUndecodable;
        }
        codePoint = codePoint << 6U | (byte & 0x3FU);
    }
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (codePoint < form.smallest || codePoint > 0x10FFFF || surrogate) {
        return kUndecodable;
    }
    at += tail;
    return codePoint;
}

void AppendWideUtf8(std::string& text, char32_t codePoint)
{
    const auto tail
        = [&](unsigned shift) { text += static_cast<char>(0x80U | (codePoint >> shift & 0x3FU)); };
    if (codePoint < 0x800) {
        text += static_cast<char>(0xC0U | codePoint >> 6U);
        tail(0);
    } else if (codePoint < 0x10000) {
        text += static_cast<char>(0xE0U | codePoint >> 12U);
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0U | codePoint >> 18U);
        tail(12);
        tail(6);
        tail(0);
    }
}

void AppendSurrogates(std::string& text, char32_t codePoint)
{
    AppendUtf16(text, 0xD800 + ((codePoint - 0x10000) >> 10U));
    AppendUtf16(text, 0xDC00 + ((codePoint - 0x10000) & 0x3FFU));
}

std::string ReadableText(std::string_view text)
{
    std::string readable;
    readable.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t codePoint = NextCodePoint(text, at);
        AppendUtf8(readable, codePoint == kUndecodable ? 0xFFFD : codePoint);
    }
    return readable;
}

std::string FromUtf16(std::string_view units)
{
    const auto unit = [&](std::size_t at) {
        return static_cast<char32_t>(static_cast<unsigned char>(units[at])) << 8U
            | static_cast<unsigned char>(units[at + 1]);
    };
    std::string text;
    for (std::size_t at = 0; at + 1 < units.size(); at += 2) {
        char32_t codePoint = unit(at);
        const bool high = codePoint >= 0xD800 && codePoint < 0xDC00;
        if (high && at + 3 < units.size()) {
            at += 2;
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10U) + (unit(at) - 0xDC00);
        }
        AppendUtf8(text, codePoint);
    }
    return text;
}

} // namespace velmora::unicode
