// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/image/TreeMeasure.h"

#include "image/ImagePlan.h"

#include <vector>

namespace velmora::mastering {

namespace {

using image::kNoNode;
using image::NodeFacts;
using image::NodeId;
using image::SourceTree;

constexpr std::uint64_t kGibibyte = 1ULL << 30U;

NodeFacts FactsOf(const image::Node& node)
{
    NodeFacts facts;
    facts.size = node.size;
    facts.inode = node.inode;
    facts.modified = {node.modifiedSeconds, node.modifiedMicros};
    facts.device = node.device; // its number will do: it only distinguishes devices
    facts.mode = node.mode;
    facts.kind = node.kind;
    facts.mayBeShared = node.mayBeShared;
    return facts;
}

/// Copies nodes from one tree to another, and remembers which became which.
class Copier {
public:
    Copier(const SourceTree& from, SourceTree& to)
        : from_(from)
        , to_(to)
        , names_(to.Names())
        , newIds_(from.NodeCount(), kNoNode)
        , lastChildren_(from.NodeCount(), kNoNode)
    {
    }

    NodeId Of(NodeId id) const { return newIds_[id]; }

    void CopyTop(NodeId top, NodeId newTop)
    {
        to_.SetFacts(newTop, FactsOf(from_[top]));
        newIds_[top] = newTop;
        for (NodeId id = from_.NextBelow(top, top); id != kNoNode; id = from_.NextBelow(top, id)) {
            const NodeId parent = from_[id].parent;
            newIds_[id] = NewNode(id);
            to_.Append(newIds_[parent], lastChildren_[parent], newIds_[id]);
            lastChildren_[parent] = newIds_[id];
        }
    }

    NodeId NewNode(NodeId id)
    {
        const image::NameRef name = names_.Add(from_.Name(id));
        return from_[id].IsLink()
            ? to_.NewLink(name, FactsOf(from_[id]), std::string(from_.LinkText(id)))
            : to_.NewNode(name, FactsOf(from_[id]));
    }

private:
    const SourceTree& from_;
    SourceTree& to_;
    image::NameArena::Writer names_;
    std::vector<NodeId> newIds_;
    std::vector<NodeId> lastChildren_; // new ids, by the old id of their parent
};

std::size_t LevelBelow(const SourceTree& tree, NodeId top, NodeId node)
{
    std::size_t levels = 0;
    for (; node != top; node = tree[node].parent) {
        ++levels;
    }
    return levels;
}

} // namespace

bool MayBreakStrictRules(const SourceTree& tree, NodeId top, std::size_t level)
{
    constexpr std::size_t kSafeLevels = 7; // of eight (ECMA-119 6.8.2.1), the root being one
    constexpr std::uint64_t kSafeBytes = 4 * kGibibyte - image::kSectorSize; // of a single extent
    for (NodeId id = top; id != kNoNode; id = tree.NextBelow(top, id)) {
        if (tree[id].size > kSafeBytes || level + LevelBelow(tree, top, id) > kSafeLevels) {
            return true;
        }
    }
    return false;
}

MeasuringCopy CopyForMeasure(const SourceTree& tree, NodeId directory, NodeId detached)
{
    MeasuringCopy copy {std::make_shared<SourceTree>(), kNoNode, kNoNode};
    Copier copier(tree, *copy.tree);
    copier.CopyTop(SourceTree::kRoot, SourceTree::kRoot);
    copier.CopyTop(detached, copier.NewNode(detached));
    copy.directory = copier.Of(directory);
    copy.detached = copier.Of(detached);
    return copy;
}

} // namespace velmora::mastering
