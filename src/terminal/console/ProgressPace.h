// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace velmora::terminal {

/// How long a line of progress stands before it is written anew: the pace of a person's eye.
inline constexpr std::chrono::milliseconds kBetweenLines {40};

} // namespace velmora::terminal
