// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imapi/EntriesLeftOut.h"
#include "imapi/IStream.h"

#include <QString>

#include <memory>
#include <vector>

namespace velmora::imapi {

/// A name that one of the image's file systems could not keep as it is.
struct ChangedName {
    QString path {};       ///< in the image, in the program's form
    QString recorded {};   ///< the last component as that file system has it
    QString fileSystem {}; ///< "Joliet", "UDF" or "ISO 9660"
};

/// An entry that some of the image's file systems hold and another one doesn't.
struct PartlyHeldEntry {
    QString path {};       ///< in the image, in the program's form
    QString fileSystem {}; ///< that lacks it: "Joliet", "UDF" or "ISO 9660"
    QString reason {};     ///< a French sentence
};

/// An entry that the image has by its name, but that some readers lose.
struct NameHazard {
    QString path {};   ///< in the image, in the program's form
    QString reason {}; ///< who loses it and why, a French sentence
};

/// A symbolic link that leads out of the image.
struct LinkLeadingOut {
    QString path {}; ///< in the image, in the program's form
    QString text {}; ///< what the link says, as this system writes it
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

    /// The image's bytes, BlockSize times TotalBlocks of them. The same stream at each call; it can
    /// only be read, at any place.
    virtual StreamRef ImageStream() = 0;

    /// Bytes in a block: 2048.
    virtual qint32 BlockSize() const = 0;

    /// Blocks in the image.
    virtual qint32 TotalBlocks() const = 0;

    /// The names that are not as they were given, one for each file system that changed them. Those
    /// of ISO 9660 count only where it doesn't keep the given ones beside its own.
    virtual std::vector<ChangedName> ChangedNames() const = 0;

    /// The symbolic links that none of the image's file systems holds: those without links have the
    /// file that a link leads to, if it is in the image. Their paths are in the image.
    virtual std::vector<LeftOutEntry> LinksLeftOut() const = 0;

    /// Sums were to be recorded, but something of that name was added, and has its place.
    virtual bool KeepsOtherSums() const = 0;

    /// The entries that one of the image's file systems lacks and another one has, once for each of
    /// those that lack them.
    virtual std::vector<PartlyHeldEntry> PartlyHeld() const = 0;

    /// The entries that some readers lose.
    virtual std::vector<NameHazard> NameHazards() const = 0;

    /// The symbolic links that lead out of the image, and those that name their target from the
    /// machine's root on: the disc has none.
    virtual std::vector<LinkLeadingOut> LinksLeadingOut() const = 0;
};

using ImageResultRef = std::shared_ptr<IFileSystemImageResult>;

} // namespace velmora::imapi
