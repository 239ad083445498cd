// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text/Paths.h"

#include <cstdint>

namespace velmora::terminal {

/// The records of burns, to list or forget.
struct BurnsRequest {
    int forgotten = 0; ///< the number of the one to forget; 0 = none
    bool forgetsAll = false;
};

/// A disc or an image file to check. At most one of `folder` and `record` is given; without them,
/// what is found is used: the sums on the disc, or the record of its burn.
struct CheckRequest {
    text::NativePath image {};  ///< the image file; empty = a disc
    std::uint32_t recorder = 0; ///< its number in the list, from 1 on; 0 = the first that works
    text::NativePath folder {}; ///< the folder whose files it must have; empty = none
    int record = 0;             ///< number of the record of its burn; 0 = none
    text::NativePath report {}; ///< the JSON report to write; empty = none
};

} // namespace velmora::terminal
