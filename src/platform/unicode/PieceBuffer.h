// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace velmora::unicode {

/// A buffer for pieces of files, aligned to a page. The page cache is aligned that way too, and
/// processors copy several times slower to an address that is a few bytes further into its page
/// than the source, as large buffers from `new` are.
/// @tparam Size  bytes
template <std::size_t Size> struct alignas(4096) PieceBuffer {
    std::array<std::byte, Size> bytes;
};

} // namespace velmora::unicode
