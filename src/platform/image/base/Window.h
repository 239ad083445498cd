// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Sector.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace velmora::image {

/// The part of an image that is being made: bytes put outside of it are dropped, so that a
/// structure can be written whole wherever the window begins and ends.
class Window {
public:
    /// @param begin  place of the window's first byte in the image
    Window(std::uint64_t begin, std::span<std::byte> bytes)
        : begin_(begin)
        , bytes_(bytes)
    {
    }

    std::uint64_t Begin() const { return begin_; }
    std::uint64_t End() const { return begin_ + bytes_.size(); }
    bool Touches(std::uint64_t begin, std::uint64_t end) const
    {
        return begin < End() && end > begin_;
    }

    void Put(std::uint64_t at, std::string_view data)
    {
        if (at >= begin_ && at + data.size() <= End()) {
            std::memcpy(bytes_.data() + (at - begin_), data.data(), data.size());
            return;
        }
        const std::uint64_t from = std::max(at, begin_);
        const std::uint64_t to = std::min(at + data.size(), End());
        if (from < to) {
            std::memcpy(bytes_.data() + (from - begin_), data.data() + (from - at), to - from);
        }
    }

    void PutZeros(std::uint64_t begin, std::uint64_t end)
    {
        const std::uint64_t from = std::max(begin, begin_);
        const std::uint64_t to = std::min(end, End());
        if (from < to) {
            std::memset(bytes_.data() + (from - begin_), 0, to - from);
        }
    }

    /// The window's bytes from `begin` to `end`, which must lie within it.
    std::span<std::byte> Part(std::uint64_t begin, std::uint64_t end)
    {
        return bytes_.subspan(begin - begin_, end - begin);
    }

private:
    std::uint64_t begin_;
    std::span<std::byte> bytes_;
};

} // namespace velmora::image
