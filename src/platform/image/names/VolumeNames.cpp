// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/VolumeNames.h"

#include "image/names/IsoNames.h"
#include "unicode/Unicode.h"

#include <algorithm>

namespace velmora::image {

namespace {

constexpr std::size_t kMaxUnits = 32; // UTF-16

bool IsControl(char32_t c)
{
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == unicode::kUndecodable;
}

std::size_t UnitsOf(char32_t c) { return c >= 0x10000 ? 2 : 1; }

} // namespace

std::string VolumeNameIso9660(const std::string& volumeName)
{
    std::string name = ToDCharacters(volumeName);
    std::replace(name.begin(), name.end(), '.', '_');
    name.resize(std::min<std::size_t>(name.size(), 32));
    return name;
}

bool IsVolumeName(std::string_view volumeName)
{
    std::size_t units = 0;
    for (std::size_t at = 0; at < volumeName.size();) {
        const char32_t c = unicode::NextCodePoint(volumeName, at);
        if (IsControl(c)) {
            return false;
        }
        units += UnitsOf(c);
    }
    return units >= 1 && units <= kMaxUnits;
}

std::string ToVolumeName(std::string_view text)
{
    std::string name;
    std::size_t units = 0;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = unicode::NextCodePoint(text, at);
        units += UnitsOf(c);
        if (units > kMaxUnits) {
            break;
        }
        unicode::AppendUtf8(name, IsControl(c) ? '_' : c);
    }
    return name.empty() ? "NONAME" : name;
}

} // namespace velmora::image
