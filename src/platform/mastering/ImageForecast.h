// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IImageForecast.h"

namespace velmora::mastering {

/// Fills an image of its own with each draft, lays it out and asks for its remarks: they are
/// computed as those of a burned image.
class ImageForecast final : public imapi::IImageForecast {
public:
    std::optional<imapi::ImageRemarks> Forecast(const imapi::ImageDraft& draft,
        std::size_t mostNames,
        const std::stop_token& stop) const override;
};

} // namespace velmora::mastering
