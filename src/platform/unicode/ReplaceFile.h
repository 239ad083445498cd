// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace velmora::unicode {

/// Writes a new file, complete and on the disk, that nobody but the user may read.
/// @param path  ends in XXXXXX, which becomes an ending that isn't taken
/// @return false with errno; there is no file then
bool WriteAnew(std::string& path, std::string_view content);

/// Writes a file that is either complete and on the disk, or as it was before: it is made beside
/// its place and takes that place when it is whole. The name may be any bytes. A file that a link
/// leads to is replaced, not the link; a device or a pipe is written to. Neither a file that is
/// protected against writing nor a link that leads nowhere is replaced.
/// Not for several threads at once: it asks for the user's mask.
/// @return false with errno
bool ReplaceFile(const std::filesystem::path& path, std::string_view content);

} // namespace velmora::unicode
