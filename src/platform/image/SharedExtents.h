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

/// What of an image file is done.
struct SharedParts {
    std::vector<ByteRange> ranges {};      ///< in order
    std::set<std::string> changedFiles {}; ///< as ImageStream::ChangedFiles
};

/// Puts what it can of large files into the image file without a copy: their extents are shared
/// where the file system can do that (XFS, btrfs), and the holes of sparse files stay holes. The
/// image file must be empty but for its size.
/// Errors: those of ImageStream::Read.
Result<SharedParts> ShareExtents(const PlanDetails& details, int imageFile);

} // namespace velmora::image
