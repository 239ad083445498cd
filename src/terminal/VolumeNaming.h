// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ImagePlan.h"

#include <string>
#include <string_view>

namespace velmora::terminal {

/// What is left of a text as a volume name: 32 UTF-16 units at most, "_" for each control character
/// and for each byte that isn't UTF-8. A text that comes back as it was is a good volume name,
/// unless empty.
std::string FittedVolumeName(std::string_view text);

/// The volume name of an image whose maker gave none: the last component of the folder's real path.
/// "DISQUE" for the root of the machine.
std::string VolumeNameOfFolder(const std::string& folder);

/// The name and what becomes of it in each file system where it differs, for the eye.
std::string VolumeNamesText(const std::string& volumeName, const image::FileSystems& fileSystems);

} // namespace velmora::terminal
