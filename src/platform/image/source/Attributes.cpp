// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/Attributes.h"

#include <algorithm>

namespace velmora::image {

namespace {

/// The permissions that everybody has on a disc.
std::uint16_t RightsOfAll(NodeKind kind)
{
    switch (kind) {
    case NodeKind::Directory:
        return 0555;
    case NodeKind::Link:
        return 0777;
    case NodeKind::File:
        break;
    }
    return 0444;
}

} // namespace

Attributes AttributeRules::Of(NodeId id) const
{
    constexpr unsigned kOrdinaryBits = 0777; // with others, owner 0 would lend root's rights
    const Node& node = source_[id];
    Attributes attributes;
    attributes.modified = {node.modifiedSeconds, node.modifiedMicros};
    if (latest_) {
        attributes.modified = std::min(attributes.modified, *latest_);
    }
    if (KeepsOwners()) {
        attributes.mode = node.mode;
        attributes.owner = source_.OwnerOf(id);
    } else {
        attributes.mode
            = static_cast<std::uint16_t>(RightsOfAll(node.kind) | (node.mode & kOrdinaryBits));
    }
    return attributes;
}

} // namespace velmora::image
