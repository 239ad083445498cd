// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Error.h"
#include "image/base/FileSystems.h"

namespace velmora::image {

/// An entry that a file system could not hold at all.
struct OmittedEntry {
    FileSystem fileSystem;
    Error error; ///< its path is the path in the image
};

} // namespace velmora::image
