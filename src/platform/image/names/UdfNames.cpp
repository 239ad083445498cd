// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/UdfNames.h"

#include "image/base/Crc.h"
#include "image/names/Cut.h"
#include "unicode/Unicode.h"

#include <algorithm>
#include <array>

namespace velmora::image {

namespace {

constexpr char kBytes = 8;  // compression ID of one byte a character
constexpr char kUnits = 16; // of two bytes

char32_t Recordable(char32_t c)
{
    return c == unicode::kUndecodable || c == 0xFEFF || c == 0xFFFE ? '_' : c;
}

bool IsAscii(std::string_view text)
{
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// '#' and the CRC of the whole name in hexadecimal digits: what UDF 4.2.2.1 puts into a name that
/// is cut.
std::string CrcTail(std::string_view source)
{
    constexpr std::array digits {
        '0', '1', '2', '3', '4', '5', '6', '7', '8', '9', 'A', 'B', 'C', 'D', 'E', 'F'};
    const std::uint16_t crc = Crc16(source);
    std::string tail = "#";
    for (int shift = 12; shift >= 0; shift -= 4) {
        tail += digits.at(crc >> shift & 0xF);
    }
    return tail;
}

} // namespace

std::string CompressedUnicode(std::string_view utf8)
{
    if (IsAscii(utf8)) {
        return kBytes + std::string(utf8);
    }
    std::string bytes {kBytes};
    std::string units {kUnits};
    bool fitsBytes = true;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t c = Recordable(unicode::NextCodePoint(utf8, at));
        fitsBytes = fitsBytes && c < 0x100;
        if (fitsBytes) {
            bytes += static_cast<char>(c);
        }
        unicode::AppendUtf16(units, c);
    }
    return fitsBytes ? bytes : units;
}

std::string FromCompressedUnicode(std::string_view compressed)
{
    if (compressed.empty()) {
        return {};
    }
    const std::string_view characters = compressed.substr(1);
    if (compressed.front() == kUnits) {
        return unicode::FromUtf16(characters);
    }
    std::string text;
    for (const char c : characters) {
        unicode::AppendUtf8(text, static_cast<unsigned char>(c));
    }
    return text;
}

std::string CutCompressed(std::string_view compressed, std::size_t maxBytes, std::string_view tail)
{
    if (compressed.empty()) {
        return {};
    }
    const std::string_view characters = compressed.substr(1);
    if (compressed.front() == kBytes) {
        return kBytes + CutBytes(characters, maxBytes - 1, tail);
    }
    std::string wideTail;
    for (const char c : tail) {
        unicode::AppendUtf16(wideTail, static_cast<unsigned char>(c));
    }
    return kUnits + CutUnits(characters, (maxBytes - 1) / 2, wideTail);
}

std::string UdfNames::Form(std::string_view source, NameOf) const
{
    std::string form = CompressedUnicode(source);
    return form.size() <= kMaxBytes ? form : CutCompressed(form, kMaxBytes, CrcTail(source));
}

bool UdfNames::IsOwnForm(std::string_view source) const
{
    return source.size() < kMaxBytes && IsAscii(source);
}

std::string UdfNames::Numbered(std::string_view source, NameOf, unsigned n) const
{
    return CutCompressed(CompressedUnicode(source), kMaxBytes, NumberTail(n));
}

std::string UdfNames::Readable(std::string_view form) const { return FromCompressedUnicode(form); }

bool UdfNames::IsKept(std::string_view form, std::string_view source) const
{
    if (IsAscii(source)) {
        return form.substr(1) == source;
    }
    return FromCompressedUnicode(form) == source;
}

} // namespace velmora::image
