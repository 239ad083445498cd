// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "terminal/arguments/ImageRequest.h"
#include "terminal/console/TerminalScreen.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace velmora::terminal {

/// What became of the entries of a folder: those that are nowhere in the image, and those that some
/// of its file systems lack.
struct Omissions {
    std::vector<image::Error> everywhere {};
    std::vector<image::LeftOutEntry> somewhere {};
};

/// What the image has otherwise than the folder.
struct Losses {
    std::vector<image::NameChange> changedNames {};
    std::vector<image::LinkLeadingOut> linksLeadingOut {};
    /// Native paths of files that were rewritten or grew: the image has what was read of them.
    std::set<std::string> changedFiles {};
    Omissions omissions {};
};

/// Sorts out what a scan passed over and what the file systems could not hold.
Omissions SortOmissions(const std::vector<image::Error>& passedOver,
    const std::vector<image::LeftOutEntry>& leftOut,
    const image::FileSystems& fileSystems);

/// Shows what was made of a request: the file, its content, its file systems and names.
void ShowResult(TerminalScreen& screen, const ImageRequest& request, const image::ImagePlan& plan);

/// Shows how many names were changed, how many links lead out of the image, how many files changed
/// while they were read and how many entries were left out, and which at Detail::Lists.
void ShowLosses(TerminalScreen& screen, Detail detail, const Losses& losses);

/// ", 3 liens"; nothing for none.
std::string LinksText(std::uint64_t links);

} // namespace velmora::terminal
