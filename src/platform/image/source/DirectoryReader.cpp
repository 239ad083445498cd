// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/DirectoryReader.h"

#include <cerrno>
#include <string_view>

namespace velmora::image {

const dirent64* DirectoryReader::Next()
{
    while (at_ < filled_ || Fill()) {
        // The kernel lays the records out for exactly this view of them.
        const auto* entry
            = reinterpret_cast<const dirent64*>(buffer_.data() + at_); // NOLINT(*-reinterpret-cast)
        at_ += entry->d_reclen;
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            return entry;
        }
    }
    return nullptr;
}

bool DirectoryReader::Fill()
{
    const auto got = ::getdents64(descriptor_, buffer_.data(), buffer_.size());
    if (got == 0) {
        errno = 0;
    }
    filled_ = got > 0 ? static_cast<std::size_t>(got) : 0;
    at_ = 0;
    return got > 0;
}

} // namespace velmora::image
