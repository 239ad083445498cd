// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"
#include "terminal/arguments/ImageRequest.h"
#include "terminal/arguments/Reply.h"

#include <optional>
#include <string>
#include <variant>

namespace velmora::terminal {

/// The options of "image" as they were typed.
struct ImageArguments {
    std::string folder;
    std::optional<std::string> output;
    std::optional<std::string> name;
    std::optional<std::string> fileSystems;
    std::optional<std::string> level;
    std::optional<std::string> medium;
    bool report = false;
};

/// The image that they ask for, or what is wrong with them.
/// @param sourceDateEpoch  the environment variable of that name, nullptr when unset
/// @param now              the time of the image without it
std::variant<ImageRequest, Reply> ImageCommand(
    const ImageArguments& typed, const char* sourceDateEpoch, image::TimeStamp now);

} // namespace velmora::terminal
