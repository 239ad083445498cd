// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImageFile.h"

namespace velmora::image {

/// Writes the whole image into a file that grows under the name by which people know it, and brings
/// it to the disk. The descriptors come last, when all else is there: what a failure, the end of
/// the process or that of the machine leaves behind is never taken for an image.
///
/// @param fileDescriptor  open for reading and writing
/// Errors: those of CopyTo.
Result<CopyReport> GrowTo(
    const ImagePlan& plan, int fileDescriptor, const CopyOptions& options = {});

} // namespace velmora::image
