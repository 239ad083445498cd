// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "virtual/RecorderFolder.h"

namespace velmora::virtualdrive {

/// What examining a disc finds, whether or not the drive is ready for it.
/// @param folder  where the disc's sectors are
/// Errors: C0AAB157 when only the sectors tell what the disc holds, and they can't be read.
drive::DiscInfo LookAtDisc(
    const RecorderFolder& folder, const Disc& disc, const DriveDescription& drive);

} // namespace velmora::virtualdrive
