// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"
#include "terminal/arguments/ContentArguments.h"
#include "terminal/arguments/Medium.h"
#include "terminal/arguments/PathChecks.h"
#include "text/Paths.h"

#include <cstdint>
#include <string>

namespace velmora::terminal {

/// One image to make of one folder.
struct ImageRequest {
    text::NativePath folder;        ///< its content becomes the root
    text::NativePath output;        ///< of the image file, "-" = standard output
    std::string volumeName {};      ///< UTF-8; empty = by the folder's name
    const Medium* medium = nullptr; ///< what the image must fit on, nullptr = anything
    Replacing replacing = Replacing::Images;
    LinkChoice links = LinkChoice::Keep;
    bool recordsSums = false;       ///< lists the files' sums in the image
    image::ImageOptions options {}; ///< its volume name is filled in by the job
    Detail detail = Detail::Counts;

    bool IsForStandardOutput() const { return output.Bytes() == "-"; }
};

} // namespace velmora::terminal
