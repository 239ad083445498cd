// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/source/SourceTree.h"

#include <cstdint>
#include <memory>

namespace velmora::mastering {

/// Whether strict ISO 9660 may have to leave out the node or something below it: too deep, too
/// large.
/// @param level  names in the node's path in the image
bool MayBreakStrictRules(const image::SourceTree& tree, image::NodeId top, std::size_t level);

/// A tree with another's measurements; it doesn't know where its files come from.
struct MeasuringCopy {
    std::shared_ptr<image::SourceTree> tree;
    image::NodeId directory; ///< the copy of a directory of the tree
    image::NodeId detached;  ///< the copy of a detached node
};
MeasuringCopy CopyForMeasure(
    const image::SourceTree& tree, image::NodeId directory, image::NodeId detached);

} // namespace velmora::mastering
