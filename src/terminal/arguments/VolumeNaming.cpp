// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/VolumeNaming.h"

#include "image/names/Cut.h"
#include "image/names/VolumeNames.h"
#include "terminal/console/FrenchText.h"
#include "unicode/Unicode.h"

#include <filesystem>
#include <system_error>

namespace velmora::terminal {

namespace {

/// The part of a UTF-16 name that fits into 32 bytes (ECMA-119 8.5.8).
std::string VolumeNameJoliet(const std::string& volumeName)
{
    constexpr std::size_t kMaxUnits = 16;
    std::string units;
    for (std::size_t at = 0; at < volumeName.size();) {
        unicode::AppendUtf16(units, unicode::NextCodePoint(volumeName, at));
    }
    return unicode::FromUtf16(image::FirstUnits(units, kMaxUnits));
}

} // namespace

std::string ProblemOfVolumeName(const std::string& name)
{
    if (image::IsVolumeName(name)) {
        return {};
    }
    return "le nom de volume " + Quoted(name)
        + " ne convient pas : donnez 1 à 32 caractères, sans caractère de contrôle.";
}

std::string VolumeNameOfFolder(const text::NativePath& folder)
{
    std::error_code failure;
    const auto path = std::filesystem::canonical(folder.Bytes(), failure);
    const std::string name = path.filename().native();
    return name.empty() ? "DISQUE" : image::ToVolumeName(name);
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
        add("Joliet", VolumeNameJoliet(volumeName));
    }
    return Quoted(volumeName) + (others.empty() ? "" : " (" + others + ")");
}

} // namespace velmora::terminal
