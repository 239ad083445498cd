// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "drive/MediaTypes.h"

#include <QList>

#include <cstddef>
#include <memory>
#include <span>

namespace velmora::imapi {

/// What a further recording on a disc needs to know, as of the moment of the query. Sectors are
/// 2048 bytes.
class IMultisession {
public:
    IMultisession() = default;
    virtual ~IMultisession() = default;
    IMultisession(const IMultisession&) = delete;
    IMultisession& operator=(const IMultisession&) = delete;
    IMultisession(IMultisession&&) = delete;
    IMultisession& operator=(IMultisession&&) = delete;

    virtual drive::IMAPI_MEDIA_PHYSICAL_TYPE PhysicalMediaType() const = 0;

    /// The state of the disc.
    virtual drive::DiscState State() const = 0;

    /// Whether nothing is recorded that an import could find.
    virtual bool IsBlank() const = 0;

    /// The recordings, the oldest first. A disc that is written from sector 0 at any time may have
    /// none, although it holds data.
    virtual QList<drive::SessionFacts> Sessions() const = 0;

    virtual qint64 FreeSectorsOnMedia() const = 0;
    virtual qint64 TotalSectorsOnMedia() const = 0;

    /// Reads whole sectors of what is recorded. Errors: C0AA0202, C0AAB157.
    virtual void ReadSectors(qint64 firstSector, std::span<std::byte> out) = 0;
};

using MultisessionRef = std::shared_ptr<IMultisession>;

} // namespace velmora::imapi
