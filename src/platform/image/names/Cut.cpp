// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/names/Cut.h"

namespace velmora::image {

namespace {

constexpr std::size_t kMaxExtension
    = 16; // characters, with the dot; anything longer isn't an extension

/// Where the extension begins, in bytes; the name's end if there is none.
std::size_t ExtensionAt(std::string_view name, std::size_t width)
{
    for (std::size_t at = name.size(); at > width; at -= width) {
        const std::size_t unit = at - width;
        if ((name.size() - unit) / width > kMaxExtension) {
            break;
        }
        const bool isDot = name[at - 1] == '.' && (width == 1 || name[unit] == '\0');
        if (isDot) {
            return unit;
        }
    }
    return name.size();
}

bool EndsInHighSurrogate(std::string_view units)
{
    return units.size() >= 2
        && (static_cast<unsigned char>(units[units.size() - 2]) & 0xFCU) == 0xD8;
}

std::string Cut(
    std::string_view name, std::size_t width, std::size_t maxBytes, std::string_view tail)
{
    const std::size_t extensionAt = ExtensionAt(name, width);
    const std::string_view extension = name.substr(extensionAt);
    std::string_view stem = name.substr(0, extensionAt);
    if (name.size() + tail.size() > maxBytes) {
        const std::size_t room = maxBytes - tail.size() - extension.size();
        stem = width == 2 ? FirstUnits(stem, room / 2) : stem.substr(0, room);
    }
    std::string cut(stem);
    cut += tail;
    cut += extension;
    return cut;
}

} // namespace

std::string_view FirstUnits(std::string_view units, std::size_t maxUnits)
{
    if (units.size() <= maxUnits * 2) {
        return units;
    }
    const std::string_view first = units.substr(0, maxUnits * 2);
    return EndsInHighSurrogate(first) ? first.substr(0, first.size() - 2) : first;
}

std::string CutUnits(std::string_view name, std::size_t maxUnits, std::string_view tail)
{
    return Cut(name, 2, maxUnits * 2, tail);
}

std::string CutBytes(std::string_view name, std::size_t maxBytes, std::string_view tail)
{
    return Cut(name, 1, maxBytes, tail);
}

} // namespace velmora::image
