// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"
#include "terminal/arguments/ContentArguments.h"
#include "terminal/arguments/ImageRequest.h"
#include "terminal/arguments/Reply.h"

#include <optional>
#include <string>
#include <variant>

namespace velmora::terminal {

/// The options that only "image" has, as they were typed.
struct ImageArguments {
    std::optional<std::string> output;
    bool replace = false;
};

/// The image that they request, or what is wrong with them.
/// @param now  the time of the image, unless the environment has one
std::variant<ImageRequest, Reply> ImageCommand(
    const ContentArguments& content, const ImageArguments& typed, image::TimeStamp now);

} // namespace velmora::terminal
