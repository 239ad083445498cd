// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/ImagePlan.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velmora::image {

/// A file of which some bytes lie in a given range of an image.
struct FilePlace {
    std::string path;            ///< native, in the image: the first of the file's names
    std::uint64_t firstByte = 0; ///< of the file, the first that lies in the range
};

/// Where all bytes of a file lie in an image.
struct FileRange {
    std::string path; ///< native, in the image: the first of the file's names
    std::uint64_t begin = 0;
    std::uint64_t bytes = 0;
};

/// All files of an image that have bytes, each once, in the order of their sectors; an empty list
/// if there are more than `most`.
std::vector<FileRange> AllFiles(const ImagePlan& plan, std::size_t most);

/// The files whose bytes lie, at least in part, in a range of an image, in the order of their
/// sectors.
/// @param begin  bytes from the start of the image; `end` is one past the range
std::vector<FilePlace> FilesBetween(const ImagePlan& plan, std::uint64_t begin, std::uint64_t end);

} // namespace velmora::image
