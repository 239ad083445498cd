// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"

#include <cstdint>
#include <memory>

namespace velmora::mastering {

/// Sectors that an image without any entry has at most, whatever its file systems.
inline constexpr std::uint64_t kMostSectorsOfEmptyImage = 4096;

/// The next node of a subtree, directories before what is in them; kNoNode behind the last.
image::NodeId NextBelow(const image::SourceTree& tree, image::NodeId top, image::NodeId node);

/// Sectors that a node and all below it add to an image at most, its records in every file system
/// included. Quick to tell, where only a plan tells the exact number.
std::uint64_t MostSectorsOf(const image::SourceTree& tree, image::NodeId top);

/// Whether strict ISO 9660 may have to leave out the node or something below it: too deep, too
/// large.
/// @param level  names in the node's path in the image
bool MayBreakStrictRules(const image::SourceTree& tree, image::NodeId top, std::size_t level);

/// A tree that measures as another does; it doesn't know where its files come from.
struct MeasuringCopy {
    std::shared_ptr<image::SourceTree> tree;
    image::NodeId directory; ///< the copy of a directory of the tree
    image::NodeId detached;  ///< the copy of a node that hangs nowhere in the tree
};
MeasuringCopy CopyForMeasure(
    const image::SourceTree& tree, image::NodeId directory, image::NodeId detached);

} // namespace velmora::mastering
