// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora::terminal {

/// How a command reports what it does.
enum class OutputForm : std::uint8_t {
    Lines, ///< to a person
    Quiet, ///< to a person who only wants to know what went wrong
    Json,  ///< to another program
};

/// The output form that a command line wants, and its command.
struct OutputChoice {
    OutputForm form = OutputForm::Lines;
    std::string command {}; ///< empty for one that has no choice
};

/// The choice is read from the words alone, so that mistakes in a command line are reported in the
/// form that it requests. Help is always for a person.
/// @param arguments  without the program's name
OutputChoice ChooseOutput(const std::vector<std::string>& arguments);

} // namespace velmora::terminal
