// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "text/Paths.h"

#include <string>

namespace velmora::terminal {

/// Why a disc can't have that name: a French sentence with what to do, empty if nothing is wrong.
std::string ProblemOfVolumeName(const std::string& name);

/// The default volume name of an image: made from the last component of the folder's real path,
/// "DISQUE" for the root of the machine.
std::string VolumeNameOfFolder(const text::NativePath& folder);

/// The name, and its form in each file system where it differs, for display.
std::string VolumeNamesText(const std::string& volumeName, const image::FileSystems& fileSystems);

} // namespace velmora::terminal
