// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "VolumeNames.h"

#include "FrenchText.h"
#include "names/Unicode.h"

#include <filesystem>
#include <system_error>

namespace velmora::terminal {

namespace {

constexpr std::size_t kLongestName = 32;       // UTF-16 units
constexpr std::size_t kLongestJolietName = 16; // UTF-16 units in 32 bytes (ECMA-119 8.5.8)

bool IsControl(char32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

std::string FirstUnits(std::string_view text, std::size_t limit)
{
    std::string fitted;
    std::size_t units = 0;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = image::NextCodePoint(text, at);
        const bool undecodable = c == image::kUndecodable;
        units += !undecodable && c > 0xFFFF ? 2 : 1;
        if (units > limit) {
            break;
        }
        image::AppendUtf8(fitted, undecodable || IsControl(c) ? U'_' : c);
    }
    return fitted;
}

} // namespace

std::string FittedVolumeName(std::string_view text) { return FirstUnits(text, kLongestName); }

std::string VolumeNameOfFolder(const std::string& folder)
{
    std::error_code failure;
    const auto path = std::filesystem::canonical(folder, failure);
    const std::string name = FittedVolumeName(path.filename().native());
    return name.empty() ? "DISQUE" : name;
}

std::string VolumeNamesText(const std::string& volumeName, const image::FileSystems& fileSystems)
{
    std::string others;
    const auto add = [&](std::string_view fileSystem, const std::string& name) {
        if (name == volumeName) {
            return;
        }
        others += others.empty() ? "" : ", ";
        others.append(fileSystem).append(" : ").append(Quoted(name));
    };
    if (fileSystems.iso9660) {
        add("ISO 9660", image::VolumeNameIso9660(volumeName));
    }
    if (fileSystems.joliet) {
        add("Joliet", FirstUnits(volumeName, kLongestJolietName));
    }
    return Quoted(volumeName) + (others.empty() ? "" : " (" + others + ")");
}

} // namespace velmora::terminal
