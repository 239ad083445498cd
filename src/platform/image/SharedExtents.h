// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PlanDetails.h"

#include <cstdint>
#include <vector>

namespace velmora::image {

/// A part of the image, in bytes.
struct ByteRange {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

/// Shares the extents of large files into the image file where its file system can do that (XFS,
/// btrfs): their data then exist once on the disk and nothing is copied. The image file must have
/// its full size.
/// @return the parts of the image that are done, in order
/// Errors: those of opening a source.
Result<std::vector<ByteRange>> ShareExtents(const PlanDetails& details, int imageFile);

} // namespace velmora::image
