// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/MediaDefaults.h"

#include "drive/DiscKinds.h"

namespace velmora::mastering {

std::optional<MediaDefaults> DefaultsFor(drive::IMAPI_MEDIA_PHYSICAL_TYPE type)
{
    const drive::DiscKind* kind = drive::FindDiscKind(type);
    if (kind == nullptr) {
        return std::nullopt;
    }
    const bool is102 = kind->udf == drive::UdfLevel::Udf102;
    return MediaDefaults {.fileSystems = kind->fileSystems,
        .udfRevision = is102 ? image::UdfRevision::Udf102 : image::UdfRevision::Udf250,
        .nominalBlocks = static_cast<qint32>(kind->sectors)};
}

} // namespace velmora::mastering
