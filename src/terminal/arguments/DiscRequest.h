// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "terminal/console/ConsoleMessages.h"

#include <cstdint>
#include <optional>
#include <string>

namespace velmora::terminal {

/// What is wanted of every command that changes a disc.
struct DiscTerms {
    std::uint32_t recorder = 0; ///< its number in the list, from 1 on; 0 = the first that works
    Assent assent = Assent::Asked;
    bool comparesAfterwards = true; ///< reads the disc back; an erase has nothing to compare
};

/// The discs that a burn can be made for.
enum class DiscChoice : std::uint8_t {
    Detected, ///< the one in the drive, whatever it is
    BluRay,
    Dvd,
    DvdDualLayer,
    Cd,
};

enum class FileSystemChoice : std::uint8_t { Iso9660, Joliet, Udf };

/// A folder to be burned.
struct BurnRequest {
    std::string folder {};     ///< native path; its content becomes the root
    std::string volumeName {}; ///< UTF-8; empty = by the folder's name
    DiscChoice disc = DiscChoice::Detected;
    std::optional<FileSystemChoice> fileSystem {}; ///< none: that of the disc
    std::optional<std::uint32_t> speed {};         ///< a multiple, none: the fastest
    bool closesDisc = false;                       ///< nothing can be added to it later
    DiscTerms terms {};
};

/// An image file to be burned.
struct IsoBurnRequest {
    std::string file {}; ///< native path
    DiscTerms terms {};
};

/// A disc to be erased.
struct EraseRequest {
    bool isFull = false; ///< all of it, not only what names its contents
    DiscTerms terms {};
};

} // namespace velmora::terminal
