// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/names/NamedTree.h"
#include "image/source/LinkTargets.h"

#include <vector>

namespace velmora::image {

/// The bytes of one file, recorded once however many names lead to them.
struct Content {
    NodeId node = kNoNode;    ///< the first of its names: where the bytes are read
    std::uint32_t sector = 0; ///< of the image
    std::uint16_t links = 0;  ///< names in the image
};

/// Which nodes share their bytes (hard links, and symbolic links where a file system has none), and
/// where the bytes lie.
class Contents {
public:
    explicit Contents(const SourceTree& source);

    /// Adds the files of one file system's tree, in its order. Its symbolic links have no content.
    void Add(const NamedTree& tree);
    /// The same for a file system that records a symbolic link as the file that it leads to.
    void Add(const NamedTree& tree, const LinkTargets& links);
    /// Adds the generated file, if there is one and it wasn't added yet: what it says of the others
    /// is known only after them, so no other call adds it.
    void AddMadeFile();
    /// Assigns sectors to every content, from `firstSector` on. Larger files begin on a block
    /// boundary of common file systems, so that they can be shared into an image file without a
    /// copy.
    /// @return the sector after the last
    std::uint64_t Place(std::uint64_t firstSector);

    const std::vector<Content>& All() const { return contents_; }
    /// The content of a file that was added.
    const Content& Of(NodeId file) const { return contents_[ofNode_[file]]; }
    std::uint32_t NumberOf(NodeId file) const { return ofNode_[file]; }
    bool Holds(NodeId file) const { return ofNode_[file] != kNone; }

private:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    struct Identity {
        std::uint64_t inode;
        std::uint16_t device;
        bool operator==(const Identity&) const = default;
    };
    struct Hash {
        std::size_t operator()(const Identity& id) const
        {
            return id.inode * 0x9E3779B97F4A7C15 + id.device;
        }
    };

    std::uint32_t Find(NodeId file);
    void AddFile(NodeId file);

    const SourceTree& source_;
    std::vector<Content> contents_;
    std::vector<std::uint32_t> ofNode_;
    std::vector<NodeId> linksToMade_; // recorded as the generated file; waiting for it
    std::unordered_map<Identity, std::uint32_t, Hash>
        shared_; // of nodes that may share their bytes
};

} // namespace velmora::image
