// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Error.h"

#include <string>

namespace velmora::terminal {

/// A failure as shown to the user: what failed, where, why and what to do.
std::string FailureText(const image::Error& error);

} // namespace velmora::terminal
