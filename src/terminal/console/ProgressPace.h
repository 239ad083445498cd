// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace velmora::terminal {

/// How long a line of progress stands before it is written anew: the pace of a person's eye.
inline constexpr std::chrono::milliseconds kBetweenLines {40};

/// How long a speed is measured before a time is told: a guess from less than this jumps about.
inline constexpr std::chrono::milliseconds kBeforeEstimate {1000};

} // namespace velmora::terminal
