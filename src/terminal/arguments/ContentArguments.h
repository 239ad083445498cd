// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "terminal/arguments/Medium.h"
#include "terminal/arguments/Reply.h"
#include "terminal/console/RemarkList.h"

#include <cstdint>
#include <optional>
#include <string>

namespace velmora::terminal {

/// What to make of a folder and for which disc, as typed and as the environment says. "image" and
/// "burn" share it and its words.
struct ContentArguments {
    std::string folder;
    std::optional<std::string> name;
    std::optional<std::string> medium;
    std::optional<std::string> fileSystems;
    std::optional<std::string> level;
    std::optional<std::string> links;
    bool sums = false;
    std::optional<std::string> attributes;
    bool report = false;
    const char* sourceDateEpoch = nullptr; ///< the variable; nullptr if it isn't set
};

/// What becomes of the symbolic links in a folder.
enum class LinkChoice : std::uint8_t { Keep, Follow };

/// What they request.
struct ContentRequest {
    std::string volumeName {};                        ///< UTF-8; empty = by the folder's name
    const Medium* medium = nullptr;                   ///< none, or the disc in the drive
    std::optional<image::FileSystems> fileSystems {}; ///< none: those of the medium
    std::optional<image::IsoLevel> level {};          ///< none: that of the file systems
    LinkChoice links = LinkChoice::Keep;
    bool recordsSums = false; ///< lists the files' sums on the disc
    image::Rights rights = image::Rights::OfEverybody;
    /// The image's time for reproducible builds: entries keep theirs unless they are newer. None:
    /// the present time.
    std::optional<image::TimeStamp> time {};
    Detail detail = Detail::Counts;
};

/// What becomes of the content.
enum class Destination : std::uint8_t {
    ImageFile,
    Disc, ///< the disc in the drive is an option; its run offers fewer file systems and levels
};

/// Parses them.
/// @return what is wrong with them
std::optional<Reply> ReadContent(
    const ContentArguments& typed, Destination destination, ContentRequest& content);

} // namespace velmora::terminal
