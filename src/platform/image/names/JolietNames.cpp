// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/JolietNames.h"

#include "image/names/Cut.h"
#include "unicode/Unicode.h"

#include <algorithm>
#include <array>

namespace velmora::image {

namespace {

constexpr bool IsAllowed(char32_t c)
{
    if (c < 0x20 || c == unicode::kUndecodable || c == 0xFEFF || c == 0xFFFE) {
        return false;
    }
    return c != '*' && c != '/' && c != ':' && c != ';' && c != '?' && c != '\\';
}

/// Which bytes of a name are characters that stay as they are.
constexpr std::array<bool, 256> kStays = [] {
    std::array<bool, 256> stays {};
    for (char32_t c = 0; c < 0x80; ++c) {
        stays[c] = IsAllowed(c);
    }
    return stays;
}();

std::string Legal(std::string_view source)
{
    std::string units(source.size() * 2, '\0'); // a character takes no more units than bytes
    std::size_t end = 0;
    for (std::size_t at = 0; at < source.size();) {
        const char32_t next = unicode::NextCodePoint(source, at);
        const char32_t c = IsAllowed(next) ? next : '_';
        if (c < 0x80) { // nearly all of them
            units[end + 1] = static_cast<char>(c);
            end += 2;
        } else {
            std::string wide;
            unicode::AppendUtf16(wide, c);
            units.replace(end, wide.size(), wide);
            end += wide.size();
        }
    }
    units.resize(end);
    return units;
}

/// Whether the form is an ASCII source with a zero byte before every character.
bool IsWidened(std::string_view form, std::string_view source)
{
    if (form.size() != source.size() * 2) {
        return false;
    }
    for (std::size_t i = 0; i < source.size(); ++i) {
        if (form[2 * i] != '\0' || form[2 * i + 1] != source[i]) {
            return false;
        }
    }
    return true;
}

bool EndsInDotOrBlank(std::string_view form)
{
    return form.size() >= 2 && form[form.size() - 2] == '\0'
        && (form.back() == '.' || form.back() == ' ');
}

} // namespace

std::string JolietNames::Form(std::string_view source, NameOf) const
{
    return CutUnits(Legal(source), maxUnits_, {});
}

bool JolietNames::IsOwnForm(std::string_view source) const
{
    const bool isItsKey = !source.ends_with('.') && !source.ends_with(' ');
    return isItsKey && source.size() <= maxUnits_
        && std::ranges::all_of(source, [](unsigned char byte) { return kStays[byte]; });
}

std::string JolietNames::Numbered(std::string_view source, NameOf, unsigned n) const
{
    std::string tail;
    for (const char c : NumberTail(n)) {
        unicode::AppendUtf16(tail, static_cast<char32_t>(c));
    }
    return CutUnits(Legal(source), maxUnits_, tail);
}

std::string_view JolietNames::Key(std::string_view form) const
{
    while (EndsInDotOrBlank(form)) {
        form.remove_suffix(2);
    }
    return form;
}

std::string JolietNames::Readable(std::string_view form) const { return unicode::FromUtf16(form); }

bool JolietNames::IsKept(std::string_view form, std::string_view source) const
{
    if (IsWidened(form, source)) {
        return true; // the usual case, without a conversion
    }
    return unicode::FromUtf16(form) == source;
}

} // namespace velmora::image
