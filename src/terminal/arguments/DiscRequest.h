// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/arguments/ContentArguments.h"
#include "terminal/console/Assent.h"
#include "text/Paths.h"

#include <cstdint>
#include <optional>

namespace velmora::terminal {

/// What every command that changes a disc has in common.
struct DiscTerms {
    std::uint32_t recorder = 0; ///< its number in the list, from 1 on; 0 = the first that works
    Assent assent = Assent::Asked;
    bool comparesAfterwards = true; ///< reads the disc back; an erase has nothing to compare
    std::uint32_t copies = 1;       ///< discs that get the same content; an erase has one
};

/// A folder to burn.
struct BurnRequest {
    text::NativePath folder {};            ///< its content becomes the root
    ContentRequest content {};             ///< no medium: the disc in the drive, whatever it is
    std::optional<std::uint32_t> speed {}; ///< a multiple, none: the fastest
    bool closesDisc = false;               ///< nothing can be added to it later
    DiscTerms terms {};
};

/// An image file to burn.
struct IsoBurnRequest {
    text::NativePath file {};
    bool isRaw = false; ///< its bytes as they are, whatever they are
    DiscTerms terms {};
};

/// A disc to erase.
struct EraseRequest {
    bool isFull = false; ///< all of it, not only what names its contents
    DiscTerms terms {};
};

} // namespace velmora::terminal
