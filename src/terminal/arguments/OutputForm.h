// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora::terminal {

/// How a command tells what it does.
enum class OutputForm : std::uint8_t {
    Lines, ///< to a person
    Quiet, ///< to a person who only wants to know what went wrong
    Json,  ///< to another program
};

/// How a command line wants to be told, and of which command.
struct OutputChoice {
    OutputForm form = OutputForm::Lines;
    std::string command {}; ///< empty for one that has no choice
};

/// What is chosen is seen in the words alone, so that what is wrong with a command line is told in
/// the form that it asks for. Help is always for a person.
/// @param arguments  without the program's name
OutputChoice ChooseOutput(const std::vector<std::string>& arguments);

} // namespace velmora::terminal
