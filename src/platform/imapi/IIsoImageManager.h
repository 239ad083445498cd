// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/IStream.h"

#include <memory>

namespace velmora::imapi {

/// Checks an image file before it is burned (MsftIsoImageManager).
class IIsoImageManager {
public:
    IIsoImageManager() = default;
    virtual ~IIsoImageManager() = default;
    IIsoImageManager(const IIsoImageManager&) = delete;
    IIsoImageManager& operator=(const IIsoImageManager&) = delete;
    IIsoImageManager(IIsoImageManager&&) = delete;
    IIsoImageManager& operator=(IIsoImageManager&&) = delete;

    /// Sets the image to check; its stream position is lost.
    /// Errors: E_POINTER for an empty reference; STG_E_SHAREVIOLATION (80030020) when another
    /// program has the file open for writing, as far as the system tells.
    virtual void SetStream(const StreamRef& image) = 0;

    /// Looks for what defines an image: the volumes of ISO 9660 and UDF, and the partitions of a
    /// hybrid disk.
    /// Errors: E_POINTER without an image; C0AAB151 when it holds none of them; 80070026 when it
    /// ends before they do; those of IStream::Read.
    virtual void Validate() = 0;
};

using IsoImageManagerRef = std::shared_ptr<IIsoImageManager>;

} // namespace velmora::imapi
