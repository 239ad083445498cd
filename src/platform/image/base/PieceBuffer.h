// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace velmora::image {

/// What pieces of files are read into, at the beginning of a page. Files lie in the system's memory
/// that way too, and processors copy several times slower to a place that is a few bytes further
/// within its page than the source is, where `new` puts large buffers.
/// @tparam Size  bytes
template <std::size_t Size> struct alignas(4096) PieceBuffer {
    std::array<std::byte, Size> bytes;
};

} // namespace velmora::image
