// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/arguments/CheckRequest.h"
#include "terminal/arguments/Reply.h"

#include <optional>
#include <string>
#include <variant>

namespace velmora::terminal {

/// The options of the commands that check discs, as they were typed.
struct CheckArguments {
    std::optional<std::string> what; ///< a recorder's number or an image file
    std::optional<std::string> folder;
    std::optional<std::string> record;
    std::optional<std::string> report;
    bool forget = false; ///< what to forget is in `record`
    bool all = false;
};

// Each returns the request, or what is wrong with the options.

std::variant<BurnsRequest, Reply> BurnsCommand(const CheckArguments& typed);
std::variant<CheckRequest, Reply> CheckCommand(const CheckArguments& typed);

} // namespace velmora::terminal
