// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IIsoImageManager.h"

namespace velmora::mastering {

/// The MsftIsoImageManager.
class IsoImageManager final : public imapi::IIsoImageManager {
public:
    void SetStream(const imapi::StreamRef& image) override;
    void Validate() override;

private:
    imapi::StreamRef image_;
};

} // namespace velmora::mastering
