// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/drives/MediaLook.h"

#include <string>

namespace velmora::terminal {

/// Why nothing can be burned on the disc in a drive, and what to do about it: French, to follow
/// "Erreur : ". Empty for a blank disc with free space, the only kind that a burn accepts.
/// @param look  the facts of a drive with a disc in it
std::string WhyNotBurnable(const MediaLook& look);

} // namespace velmora::terminal
