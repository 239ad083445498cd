// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/EntriesLeftOut.h"
#include "imapi/IStream.h"
#include "text/DiscPath.h"

#include <QString>

#include <memory>
#include <vector>

namespace velmora::imapi {

/// A name that one of the image's file systems had to change.
struct ChangedName {
    text::DiscPath path {};
    QString recorded {};   ///< the last component as that file system has it
    QString fileSystem {}; ///< "Joliet", "UDF" or "ISO 9660"
};

/// An entry that one of the image's file systems lacks but another one holds.
struct PartlyHeldEntry {
    text::DiscPath path {};
    QString fileSystem {}; ///< the one that lacks it: "Joliet", "UDF" or "ISO 9660"
    QString reason {};     ///< a French sentence
};

/// An entry that the image holds under its name, but that some readers lose.
struct NameHazard {
    text::DiscPath path {};
    QString reason {}; ///< who loses it and why, a French sentence
};

/// A symbolic link that leads out of the image.
struct LinkLeadingOut {
    text::DiscPath path {};
    QString text {}; ///< the link's text, as on this system
};

/// A finished image, ready to be read.
class IFileSystemImageResult {
public:
    IFileSystemImageResult() = default;
    virtual ~IFileSystemImageResult() = default;
    IFileSystemImageResult(const IFileSystemImageResult&) = delete;
    IFileSystemImageResult& operator=(const IFileSystemImageResult&) = delete;
    IFileSystemImageResult(IFileSystemImageResult&&) = delete;
    IFileSystemImageResult& operator=(IFileSystemImageResult&&) = delete;

    /// The image's bytes, BlockSize times TotalBlocks of them. The same stream at each call; it is
    /// read-only and seekable.
    virtual StreamRef ImageStream() = 0;

    /// Bytes in a block: 2048.
    virtual qint32 BlockSize() const = 0;

    /// Blocks in the image.
    virtual qint32 TotalBlocks() const = 0;

    /// The names that were changed, one for each file system that changed them. Those of ISO 9660
    /// count only if it doesn't keep the original ones beside its own.
    virtual std::vector<ChangedName> ChangedNames() const = 0;

    /// The symbolic links that none of the image's file systems holds: a file system without links
    /// has the file that a link leads to instead, if it is in the image. Paths in the image.
    virtual std::vector<LeftOutEntry> LinksLeftOut() const = 0;

    /// Sums were requested, but something of that name was added, and takes precedence.
    virtual bool KeepsOtherSums() const = 0;

    /// The entries that one of the image's file systems lacks and another one has, once for each
    /// that lacks them.
    virtual std::vector<PartlyHeldEntry> PartlyHeld() const = 0;

    /// The entries that some readers lose.
    virtual std::vector<NameHazard> NameHazards() const = 0;

    /// The symbolic links that lead out of the image, including absolute ones: they can't work on
    /// the disc.
    virtual std::vector<LinkLeadingOut> LinksLeadingOut() const = 0;
};

using ImageResultRef = std::shared_ptr<IFileSystemImageResult>;

} // namespace velmora::imapi
