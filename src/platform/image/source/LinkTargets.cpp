// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/LinkTargets.h"

#include <algorithm>
#include <string>

namespace velmora::image {

namespace {

constexpr unsigned kMostLinks = 40; // in a row: Linux follows no more

/// Follows the text of one link through the tree.
class Walk {
public:
    explicit Walk(const SourceTree& source)
        : source_(source)
    {
    }

    /// The node that a link leads to in the end; kNoNode for none.
    NodeId BehindLink(NodeId link)
    {
        const std::string_view text = source_.LinkText(link);
        if (IsAbsoluteLink(text)) {
            leadsOut_ = true;
            return kNoNode;
        }
        if (++links_ > kMostLinks) {
            return kNoNode;
        }
        NodeId at = source_[link].parent;
        for (const std::string_view name : NamesOfLink(text)) {
            at = Step(at, name);
            if (at == kNoNode) {
                break;
            }
        }
        return at;
    }

    bool LeadsOut() const { return leadsOut_; }

    /// The node that a name leads to from a node; kNoNode for none.
    NodeId Step(NodeId from, std::string_view name)
    {
        if (!source_[from].IsDirectory()) {
            return kNoNode;
        }
        if (name == ".") {
            return from;
        }
        if (name == "..") {
            leadsOut_ = from == SourceTree::kRoot;
            return leadsOut_ ? kNoNode : source_[from].parent;
        }
        const NodeId child = source_.Find(from, name);
        return child != kNoNode && source_[child].IsLink() ? BehindLink(child) : child;
    }

private:
    const SourceTree& source_;
    unsigned links_ = 0;
    bool leadsOut_ = false;
};

bool HangsInTree(const SourceTree& source, NodeId node)
{
    while (node != SourceTree::kRoot && node != kNoNode) {
        node = source[node].parent;
    }
    return node == SourceTree::kRoot;
}

} // namespace

LinkTargets::LinkTargets(const SourceTree& source)
    : source_(source)
{
    std::vector<std::pair<std::string, NodeId>> out;
    for (const auto& [link, text] : source.Links()) {
        if (!HangsInTree(source, link)) {
            continue;
        }
        Walk walk(source);
        const NodeId target = walk.BehindLink(link);
        if (walk.LeadsOut()) {
            out.emplace_back(source.ImagePath(link), link);
        } else if (target != kNoNode && source[target].kind == NodeKind::File) {
            files_.emplace(link, target);
        }
    }
    std::sort(out.begin(), out.end());
    for (const auto& [path, link] : out) {
        leadingOut_.push_back(link);
    }
}

NodeId LinkTargets::FileBehindLink(NodeId link) const
{
    const auto found = files_.find(link);
    return found == files_.end() ? kNoNode : found->second;
}

std::vector<NodeId> LinkTargets::NamedBy(NodeId link) const
{
    const std::string_view text = source_.LinkText(link);
    std::vector<NodeId> named;
    Walk walk(source_);
    NodeId at = IsAbsoluteLink(text) ? kNoNode : source_[link].parent;
    for (const std::string_view name : NamesOfLink(text)) {
        const bool isSearched = at != kNoNode && source_[at].IsDirectory();
        named.push_back(isSearched ? source_.Find(at, name) : kNoNode); // "." and ".." aren't names
        at = isSearched ? walk.Step(at, name) : kNoNode;
    }
    return named;
}

std::vector<std::string_view> NamesOfLink(std::string_view text)
{
    std::vector<std::string_view> names;
    while (!text.empty()) {
        const std::string_view name = text.substr(0, text.find('/'));
        text.remove_prefix(std::min(name.size() + 1, text.size()));
        if (!name.empty()) {
            names.push_back(name);
        }
    }
    return names;
}

} // namespace velmora::image
