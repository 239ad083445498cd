// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/arguments/ContentArguments.h"
#include "terminal/arguments/DiscRequest.h"
#include "terminal/arguments/DriveRequest.h"
#include "terminal/arguments/Reply.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace velmora::terminal {

/// The options of the commands that use a recorder, as they were typed.
struct DiscArguments {
    std::string image; ///< the file to burn
    std::optional<std::string> recorder;
    std::optional<std::string> speed;
    std::optional<std::string> copies;
    bool close = false;
    bool noCompare = false;
    bool full = false;
    bool raw = false;
    bool yes = false;
    bool json = false;
};

// Each returns the request, or what is wrong with the options.

std::variant<BurnRequest, Reply> BurnCommand(
    const ContentArguments& content, const DiscArguments& typed);
std::variant<IsoBurnRequest, Reply> IsoBurnCommand(const DiscArguments& typed);
std::variant<EraseRequest, Reply> EraseCommand(const DiscArguments& typed);
std::variant<DriveRequest, Reply> DriveCommand(DriveQuestion question, const DiscArguments& typed);

} // namespace velmora::terminal
