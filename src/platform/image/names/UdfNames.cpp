// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/UdfNames.h"

#include "image/base/Crc.h"
#include "image/names/Cut.h"
#include "unicode/Unicode.h"

#include <array>

namespace velmora::image {

namespace {

constexpr char kBytes = 8;  // compression ID of one byte a character
constexpr char kUnits = 16; // of two bytes

char32_t Recordable(char32_t c)
{
    return c == unicode::kUndecodable || c == 0xFEFF || c == 0xFFFE ? '_' : c;
}

std::string WideUnicode(std::string_view utf8)
{
    std::string units {kUnits};
    units.reserve(1 + utf8.size() * 2); // a character takes no more units than bytes
    for (std::size_t at = 0; at < utf8.size();) {
        unicode::AppendUtf16(units, Recordable(unicode::NextCodePoint(utf8, at)));
    }
    return units;
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
    std::string bytes {kBytes};
    if (unicode::IsAscii(utf8)) {
        return bytes += utf8;
    }
    bytes.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t c = Recordable(unicode::NextCodePoint(utf8, at));
        if (c > 0xFF) {
            return WideUnicode(utf8);
        }
        bytes += static_cast<char>(c);
    }
    return bytes;
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
    return source.size() < kMaxBytes && unicode::IsAscii(source);
}

std::string UdfNames::Numbered(std::string_view source, NameOf, unsigned n) const
{
    return CutCompressed(CompressedUnicode(source), kMaxBytes, NumberTail(n));
}

std::string UdfNames::Readable(std::string_view form) const { return FromCompressedUnicode(form); }

bool UdfNames::IsKept(std::string_view form, std::string_view source) const
{
    if (unicode::IsAscii(source)) {
        return form.substr(1) == source;
    }
    return FromCompressedUnicode(form) == source;
}

} // namespace velmora::image
