// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/contents/Contents.h"

#include "image/base/Window.h"

namespace velmora::image {

namespace {

constexpr std::uint64_t kAlignedSize
    = std::uint64_t {64} * 1024; // files of this size on are aligned: the gap stays under 4 %
constexpr std::uint64_t kAlignment
    = 2; // sectors: 4096 bytes, the block of the file systems that share
constexpr std::uint16_t kMaxLinks
    = 0xFFFF; // a UDF file entry counts no further (ECMA-167 4/14.9.6)

} // namespace

Contents::Contents(const SourceTree& source)
    : source_(source)
    , ofNode_(source.NodeCount(), kNone)
{
    for (NodeId id = 0; id < source.NodeCount(); ++id) {
        if (source[id].mayBeShared) {
            shared_.emplace(Identity {source[id].inode, source[id].device}, kNone);
        }
    }
}

std::uint32_t Contents::Find(NodeId file)
{
    const auto isNew = static_cast<std::uint32_t>(contents_.size());
    if (shared_.empty()) {
        return isNew;
    }
    const auto known = shared_.find({source_[file].inode, source_[file].device});
    if (known == shared_.end()) {
        return isNew;
    }
    const bool isUsable = known->second != kNone && contents_[known->second].links < kMaxLinks
        && source_[contents_[known->second].node].size == source_[file].size;
    if (!isUsable) {
        known->second = isNew;
    }
    return known->second;
}

void Contents::Add(const NamedTree& tree)
{
    for (const NamedEntry& entry : tree.entries) {
        const bool isFile = source_[entry.node].kind == NodeKind::File;
        if (isFile && entry.node != source_.MadeFile() && !Holds(entry.node)) {
            AddFile(entry.node);
            ++contents_[ofNode_[entry.node]].links;
        }
    }
}

void Contents::Add(const NamedTree& tree, const LinkTargets& links)
{
    Add(tree);
    for (const NamedEntry& entry : tree.entries) {
        if (!source_[entry.node].IsLink()) {
            continue;
        }
        const NodeId file = links.FileBehind(entry.node);
        if (file == source_.MadeFile() && !Holds(file)) {
            linksToMade_.push_back(entry.node);
            continue;
        }
        if (!Holds(file)) {
            AddFile(file); // the file itself is omitted, the link isn't
        }
        ofNode_[entry.node] = ofNode_[file];
    }
}

void Contents::AddMadeFile()
{
    const NodeId made = source_.MadeFile();
    if (made != kNoNode && !Holds(made)) {
        AddFile(made);
        contents_.back().links = 1;
    }
    for (const NodeId link : linksToMade_) {
        ofNode_[link] = ofNode_[made];
    }
    linksToMade_.clear();
}

void Contents::AddFile(NodeId file)
{
    const std::uint32_t number = Find(file);
    if (number == contents_.size()) {
        contents_.push_back({file});
    }
    ofNode_[file] = number;
}

std::uint64_t Contents::Place(std::uint64_t firstSector)
{
    std::uint64_t sector = firstSector;
    for (Content& content : contents_) {
        const std::uint64_t size = source_[content.node].size;
        if (size >= kAlignedSize) {
            sector += sector % kAlignment;
        }
        content.sector = static_cast<std::uint32_t>(sector);
        sector += SectorsFor(size);
    }
    return sector;
}

} // namespace velmora::image
