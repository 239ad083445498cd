// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/MediaTypes.h"
#include "image/ImagePlan.h"

#include <QtGlobal>

#include <optional>

namespace velmora::mastering {

/// What an image is made for if only the kind of disc is known.
struct MediaDefaults {
    drive::FsiFileSystems fileSystems;
    image::UdfRevision udfRevision;
    qint32 nominalBlocks; ///< of 2048 bytes, on the largest disc of its kind; 0 = no limit
};

/// The defaults of a kind of disc; none for a number that names no disc. A read-only disc has those
/// of its family.
std::optional<MediaDefaults> DefaultsFor(drive::IMAPI_MEDIA_PHYSICAL_TYPE type);

} // namespace velmora::mastering
