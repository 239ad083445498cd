// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MediaTypes.h"

#include <memory>

namespace velmora::imapi {

/// The disc in a drive, as far as an image has to know it.
struct DiscFacts {
    IMAPI_MEDIA_PHYSICAL_TYPE type = IMAPI_MEDIA_PHYSICAL_TYPE::Unknown;
    qint64 freeSectors = 0; ///< of 2048 bytes
};

/// A recorder.
class IDiscRecorder2 {
public:
    IDiscRecorder2() = default;
    virtual ~IDiscRecorder2() = default;
    IDiscRecorder2(const IDiscRecorder2&) = delete;
    IDiscRecorder2& operator=(const IDiscRecorder2&) = delete;
    IDiscRecorder2(IDiscRecorder2&&) = delete;
    IDiscRecorder2& operator=(IDiscRecorder2&&) = delete;

    /// The disc that lies in the drive now; what an image's defaults are taken from.
    /// Errors: C0AA0202 for an empty tray; those of every access to a drive.
    virtual DiscFacts DiscInDrive() = 0;
};

using RecorderRef = std::shared_ptr<IDiscRecorder2>;

} // namespace velmora::imapi
