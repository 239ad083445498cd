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

/// How the image differs from the folder.
struct Losses {
    std::vector<image::NameChange> changedNames {};
    std::vector<image::HazardousName> nameHazards {};
    std::vector<image::OutwardLink> linksLeadingOut {};
    /// Native paths of files that were rewritten or grew: the image holds what was read from them.
    std::set<std::string> changedFiles {};
    /// Entries of the folder that the image lacks.
    std::vector<image::Error> missing {};
    /// Entries that one of its file systems lacks.
    std::vector<image::OmittedEntry> partlyMissing {};
    /// The requested sums are missing, as the folder has a file of their name.
    bool keepsOtherSums = false;
};

/// Those that are known before the image is written: from the scan and from the plan.
Losses LossesOf(const std::vector<image::Error>& passedOver, const image::ImagePlan& plan);

/// Shows the result of a request: the file, its content, its file systems and names.
void ShowResult(TerminalScreen& screen, const ImageRequest& request, const image::ImagePlan& plan);

/// Shows how many there are of each sort, and which at Detail::Lists.
void ShowLosses(TerminalScreen& screen, Detail detail, const Losses& losses);

/// ", 3 liens"; nothing for none.
std::string LinksText(std::uint64_t links);

} // namespace velmora::terminal
