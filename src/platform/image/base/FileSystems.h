// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace velmora::image {

enum class FileSystem : std::uint8_t { Iso9660, Joliet, Udf };

/// The file systems of one image.
struct FileSystems {
    bool iso9660 = true;
    bool joliet = true; ///< only together with ISO 9660
    bool udf = true;
};

} // namespace velmora::image
