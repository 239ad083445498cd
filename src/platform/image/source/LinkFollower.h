// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/TreeScanner.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace velmora::image {

/// Puts what symbolic links lead to in their place, for discs whose readers know no links.
///
/// However folders link to each other, each is included once, at its real place rather than at a
/// link's: so it ends for any tree. Folders that hold the whole source, and anything in /proc, /sys
/// and /dev, are not included. The same source gives the same tree.
class LinkFollower {
public:
    /// @param source  native path of the folder that all trees are part of
    explicit LinkFollower(const std::string& source);
    /// Makes one that knows all folders of the source.
    /// Errors: those of ScanFolder.
    static Result<LinkFollower> Of(const std::string& source, const ScanOptions& options = {});

    /// Notes the folders of a scanned tree as being at their real places.
    void Know(const SourceTree& tree, NodeId top);

    /// Replaces the links below a scanned node, and those inside what replaces them. A link that
    /// can't be replaced is removed, and the report says what it would have led to.
    /// Errors: Cancelled. After an error the tree is unusable.
    Result<> Follow(SourceTree& tree, NodeId top, ScanReport& report, const ScanOptions& options);
    /// The same for one link, which isn't counted in the report yet.
    Result<> FollowLink(
        SourceTree& tree, NodeId link, ScanReport& report, const ScanOptions& options);

private:
    using Identity = std::pair<std::uint64_t, std::uint64_t>; // device and inode

    struct Run;

    Result<> ReplaceAll(Run& run, std::vector<NodeId> links);
    Result<> Replace(Run& run, NodeId link);
    Result<> TakeFolder(Run& run, NodeId link, const std::string& path, const NodeFacts& facts);
    std::optional<ErrorKind> RefusalOfFolder(const NodeFacts& facts);

    std::set<Identity> above_; // the source, and the folders that hold it
    std::set<Identity> taken_;
};

} // namespace velmora::image
