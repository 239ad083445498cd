// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace velmora::image {

/// The volume name in the ISO 9660 tree: d-characters, 32 at most (ECMA-119 8.4.7).
std::string VolumeNameIso9660(const std::string& volumeName);

/// Whether a text can be a volume name: 1 to 32 UTF-16 units without control characters.
bool IsVolumeName(std::string_view volumeName);
/// The nearest volume name to any text, a folder's name for instance.
std::string ToVolumeName(std::string_view text);

} // namespace velmora::image
