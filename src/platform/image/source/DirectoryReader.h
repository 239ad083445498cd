// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <dirent.h>

namespace velmora::image {

/// Reads the entries of one open directory, in the kernel's order and in large pieces.
class DirectoryReader {
public:
    explicit DirectoryReader(int descriptor)
        : descriptor_(descriptor)
    {
    }

    /// The next entry except "." and ".."; nullptr at the end, with errno set on failure (0 =
    /// none).
    const dirent64* Next();

private:
    bool Fill();

    int descriptor_;
    std::size_t at_ = 0;
    std::size_t filled_ = 0;
    alignas(dirent64) std::array<char, std::size_t {64} * 1024> buffer_;
};

} // namespace velmora::image
