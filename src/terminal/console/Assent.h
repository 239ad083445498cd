// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace velmora::terminal {

/// Who answers the questions.
enum class Assent : std::uint8_t {
    Asked, ///< a person, at the prompt
    Given, ///< nobody: everything was agreed to beforehand
};

} // namespace velmora::terminal
