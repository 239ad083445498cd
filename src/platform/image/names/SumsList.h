// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Window.h"
#include "image/names/NamedTree.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velmora::image {

/// The bytes of a SHA-256.
using FileSum = std::array<std::byte, 32>;

/// The text that lists the files of an image with their sums, in the form that sha256sum(1) checks:
/// a line for each name that a file has. Its length depends on the names alone.
class SumsList {
public:
    /// The name that a reader of the disc shows for an entry.
    using ReadName = std::function<std::string(const NamedEntry& entry)>;
    using SumOf = std::function<const FileSum&(NodeId file)>;

    /// @param tree  of the file system that readers prefer; with the source, outlives the list
    SumsList(const SourceTree& source, const NamedTree& tree, ReadName readName);

    std::uint64_t Size() const { return starts_.back(); } ///< bytes

    /// Fills in the window's part of the text.
    /// @param place  of its first byte in the image
    void Render(Window& window, std::uint64_t place, const SumOf& sumOf) const;

private:
    std::string PathOf(std::uint32_t directory) const;
    std::uint64_t LengthOf(std::uint32_t directory) const;
    std::string LinesOf(std::uint32_t directory, const SumOf& sumOf) const;
    bool IsListed(const NamedEntry& entry) const;

    const SourceTree& source_;
    const NamedTree& tree_;
    ReadName readName_;
    std::vector<std::uint64_t> starts_; // of each directory's lines, and after the last
};

} // namespace velmora::image
