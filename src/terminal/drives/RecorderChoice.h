// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/TerminalScreen.h"
#include "terminal/drives/RecorderSurvey.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace velmora::terminal {

/// The recorder that a command line means; if it can't be used, the screen says why.
/// @param number  in the list, from 1 on; 0 = the first that answers
/// @return its place in the list, from 0 on; nothing when none answers
std::optional<std::size_t> ChooseRecorder(
    std::uint32_t number, const std::vector<SurveyedRecorder>& found, TerminalScreen& screen);

} // namespace velmora::terminal
