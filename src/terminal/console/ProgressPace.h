// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace velmora::terminal {

/// How long a line of progress stays before it is rewritten: as fast as the eye can follow.
inline constexpr std::chrono::milliseconds kBetweenLines {40};

} // namespace velmora::terminal
