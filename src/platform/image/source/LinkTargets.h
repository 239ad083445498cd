// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmora::image {

/// What the symbolic links of a tree lead to on the disc, as told by their texts and the tree's own
/// names: the machine's file system isn't asked.
class LinkTargets {
public:
    /// The tree must not change as long as this lives.
    explicit LinkTargets(const SourceTree& source);

    /// The file that holds a node's data: for a file itself, for a link the file of the tree that
    /// it leads to, through any number of links; kNoNode if it leads to none.
    NodeId FileBehind(NodeId node) const
    {
        return source_[node].IsLink() ? FileBehindLink(node) : node;
    }

    /// The nodes that the names in a link's text mean, one for each of NamesOfLink: kNoNode for "."
    /// and "..", and for names that aren't in the tree. For one thread, as it searches the tree.
    std::vector<NodeId> NamedBy(NodeId link) const;

    /// The links that lead out of the tree, sorted by their path in the image. What they name on
    /// another machine is unknown.
    const std::vector<NodeId>& LeadingOut() const { return leadingOut_; }

private:
    NodeId FileBehindLink(NodeId link) const;

    const SourceTree& source_;
    std::unordered_map<NodeId, NodeId> files_; ///< of the links that lead to one
    std::vector<NodeId> leadingOut_;
};

/// The names of a link's text, one after another: without the empty ones, which mean nothing.
std::vector<std::string_view> NamesOfLink(std::string_view text);

/// Whether a link's text begins at the machine's root.
inline bool IsAbsoluteLink(std::string_view text) { return text.starts_with('/'); }

} // namespace velmora::image
