// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"
#include "terminal/arguments/CheckRequest.h"
#include "terminal/arguments/DiscRequest.h"
#include "terminal/arguments/DriveRequest.h"
#include "terminal/arguments/ImageRequest.h"
#include "terminal/arguments/Reply.h"

#include <string>
#include <variant>
#include <vector>

namespace velmora::terminal {

/// What a command line requests.
using Command = std::variant<ImageRequest,
    BurnRequest,
    IsoBurnRequest,
    EraseRequest,
    DriveRequest,
    BurnsRequest,
    CheckRequest,
    Reply>;

/// Parses a command line.
/// @param arguments        without the program's name
/// @param sourceDateEpoch  the environment variable of that name, nullptr when unset
/// @param now              the time of the image without it
Command ParseCommandLine(
    std::vector<std::string> arguments, const char* sourceDateEpoch, image::TimeStamp now);

/// The time of an image that is made now.
image::TimeStamp PresentTime();

} // namespace velmora::terminal
