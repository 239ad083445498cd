// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/PlanDetails.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace velmora::image {

/// A part of the image, in bytes.
struct ByteRange {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

/// The parts of an image file that are done.
struct SharedParts {
    std::vector<ByteRange> ranges {};      ///< in order
    std::set<std::string> changedFiles {}; ///< as ImageStream::ChangedFiles
};

/// Puts as much of the large files as it can into the image file without copying: their extents are
/// shared where the file system can do that (XFS, btrfs), and the holes of sparse files stay holes.
/// The image file must have its size and be empty otherwise.
/// Errors: those of ImageStream::Read.
Result<SharedParts> ShareExtents(const PlanDetails& details, int imageFile);

} // namespace velmora::image
