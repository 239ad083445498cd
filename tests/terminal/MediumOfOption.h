// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/arguments/Medium.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace velmora::terminal {

/// The kind of disc that is typed so.
inline const Medium* MediumOfOption(std::string_view option)
{
    for (const Medium& medium : Media()) {
        if (medium.option == option) return &medium;
    }
    throw std::logic_error("no kind of disc is typed " + std::string(option));
}

} // namespace velmora::terminal
