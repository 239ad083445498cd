// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/ImageResult.h"

#include "mastering/ImageResultStream.h"

namespace velmora::mastering {

ImageResult::ImageResult(const image::ImagePlan& plan)
    : stream_(std::make_shared<ImageResultStream>(plan))
    , totalBlocks_(static_cast<qint32>(plan.Sectors()))
{
}

qint32 ImageResult::BlockSize() const { return static_cast<qint32>(image::kSectorSize); }

} // namespace velmora::mastering
