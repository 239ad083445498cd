// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/OutputForm.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velmora::terminal {

namespace {

/// The commands that take a while and report more than an answer.
constexpr std::array<std::string_view, 5> kJobs {"image", "burn", "burn-iso", "erase", "check"};

} // namespace

OutputChoice ChooseOutput(const std::vector<std::string>& arguments)
{
    if (arguments.empty() || std::ranges::find(kJobs, arguments.front()) == kJobs.end()) {
        return {};
    }
    const auto has = [&](std::string_view word) {
        return std::ranges::find(arguments, word) != arguments.end();
    };
    OutputChoice choice {.command = arguments.front()};
    if (has("--help") || has("-h")) {
        return choice;
    }
    if (has("--json")) {
        choice.form = OutputForm::Json;
    } else if (has("--quiet") || has("-q")) {
        choice.form = OutputForm::Quiet;
    }
    return choice;
}

} // namespace velmora::terminal
