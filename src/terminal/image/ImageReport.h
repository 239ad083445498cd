// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "terminal/arguments/ImageRequest.h"
#include "terminal/console/TerminalScreen.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velmora::terminal {

/// A failure as a person reads it: what failed, where, why and what to do.
std::string FailureText(const image::Error& error);

/// What became of the entries of a folder: those that are nowhere in the image, and those that some
/// of its file systems lack.
struct Omissions {
    std::vector<image::Error> everywhere {};
    std::vector<image::LeftOutEntry> somewhere {};
};

/// Sorts out what a scan passed over and what the file systems could not hold.
Omissions SortOmissions(const std::vector<image::Error>& passedOver,
    const std::vector<image::LeftOutEntry>& leftOut,
    const image::FileSystems& fileSystems);

/// Shows what was made of a request: the file, its content, its file systems and names.
void ShowResult(TerminalScreen& screen, const ImageRequest& request, const image::ImagePlan& plan);

/// Shows how many names were changed and how many entries left out, and which at Detail::Lists.
void ShowLosses(TerminalScreen& screen,
    Detail detail,
    const std::vector<image::NameChange>& changes,
    const Omissions& omissions);

} // namespace velmora::terminal
