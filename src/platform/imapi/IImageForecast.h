// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/MediaTypes.h"
#include "imapi/EntriesLeftOut.h"
#include "imapi/IFileSystemImageResult.h"
#include "text/DiscPath.h"
#include "text/Paths.h"

#include <QString>

#include <optional>
#include <stop_token>
#include <vector>

namespace velmora::imapi {

/// One addition to an image.
struct ImageEntry {
    enum class Kind : qint8 {
        File,      ///< of this machine, or a symbolic link
        Directory, ///< made for the disc
        Tree,      ///< a directory of this machine, under its own name
    };
    Kind kind = Kind::File;
    /// Of a tree, that of the directory it goes into; empty: the root.
    text::DiscPath path {};
    text::ProgramPath source {}; ///< empty for a directory made for the disc
};

/// The settings of an IFileSystemImage before it makes the result.
struct ImageDraft {
    drive::IMAPI_MEDIA_PHYSICAL_TYPE medium = drive::IMAPI_MEDIA_PHYSICAL_TYPE::Unknown;
    /// Replaces the medium's defaults, if any are given.
    std::optional<drive::FsiFileSystems> fileSystems {};
    bool isStrict = false; ///< ISO 9660 at level 1, strictly
    QString volumeName {}; ///< empty: the date and time
    std::vector<ImageEntry> entries {};
};

/// How an image will differ from its sources; see RunReport and IFileSystemImageResult, which tell
/// the same of a finished image.
struct ImageRemarks {
    std::vector<LeftOutEntry> leftOut {};
    std::vector<ChangedName> changedNames {};
    std::vector<PartlyHeldEntry> partlyHeld {};
    std::vector<NameHazard> nameHazards {};
    std::vector<LinkLeadingOut> linksLeadingOut {};
};

/// Tells how an image would differ from its sources, without making it. The sources are listed, but
/// none of their bytes is read, and nothing is written.
class IImageForecast {
public:
    IImageForecast() = default;
    virtual ~IImageForecast() = default;
    IImageForecast(const IImageForecast&) = delete;
    IImageForecast& operator=(const IImageForecast&) = delete;
    IImageForecast(IImageForecast&&) = delete;
    IImageForecast& operator=(IImageForecast&&) = delete;

    /// Any thread may ask: each query is computed independently. The image may have any size.
    /// @param mostNames  the most changed names to list for each file system
    /// @param stop  asks to give up, which takes effect within about a tenth of a second
    /// @return none after a stop, and for an image that isn't possible
    virtual std::optional<ImageRemarks> Forecast(
        const ImageDraft& draft, std::size_t mostNames, const std::stop_token& stop) const = 0;
};

} // namespace velmora::imapi
