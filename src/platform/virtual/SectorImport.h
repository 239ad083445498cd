// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

#include <functional>
#include <string>

namespace velmora::virtualdrive {

/// Copies an image into a new file of sectors; the last sector is padded with zeros.
/// @param image      native path of a regular file
/// @param most       sectors that the disc has
/// @param meanwhile  called between pieces of the copy; may be empty
/// @return the number of sectors
/// Errors: 53 (no such file), 5 (not an image file), C0AA0404 (larger than the disc), C0AA0301.
qint64 ImportImage(const std::string& image,
    const std::string& target,
    qint64 most,
    const std::function<void()>& meanwhile);

} // namespace velmora::virtualdrive
