// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/ImageState.h"

#include "drive/PublishedCodes.h"

namespace velmora::mastering {

ImageState::ImageState(const runtime::Clock& clock, const ImageTimes& times)
    : contents(times.made.value_or(StampOf(clock.Now())))
    , events(clock)
{
    contents.Options().latest = times.latest;
}

void ImageState::RequireChangeable() const
{
    if (isReadOnly) {
        throw drive::PublishedError(drive::hresult::kReadOnly);
    }
}

} // namespace velmora::mastering
