// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImageFile.h"

namespace velmora::image {

/// Writes the whole image into a file that grows under its final name, and flushes it to the disk.
/// The descriptors are written last, after everything else: whatever a failure, a killed process or
/// a crash of the machine leaves behind is never mistaken for an image.
///
/// @param fileDescriptor  open for reading and writing
/// Errors: those of CopyTo.
Result<CopyReport> GrowTo(
    const ImagePlan& plan, int fileDescriptor, const CopyOptions& options = {});

} // namespace velmora::image
