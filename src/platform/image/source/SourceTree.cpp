// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/SourceTree.h"

#include "image/source/FileFacts.h"

#include <algorithm>
#include <fcntl.h>
#include <iterator>

namespace velmora::image {

namespace {

constexpr std::uint16_t kMadeDirectoryMode = 0755; // of a directory that exists only on the disc

bool IsValidName(std::string_view name)
{
    return !name.empty() && name != "." && name != ".." && name.size() <= SourceTree::kMaxNameLength
        && name.find('\0') == std::string_view::npos;
}

/// The ancestor's path, followed by the names from it down to the node.
std::string JoinUpwards(std::string path, const std::vector<std::string_view>& names)
{
    std::for_each(names.rbegin(), names.rend(), [&](std::string_view name) {
        if (!path.empty() && path.back() != '/') {
            path += '/';
        }
        path += name;
    });
    return path;
}

} // namespace

SourceTree::SourceTree(TimeStamp rootModified)
{
    NodeFacts root;
    root.kind = NodeKind::Directory;
    root.mode = kMadeDirectoryMode;
    root.modified = rootModified;
    NewNode(ownNames_.Add(""), root);
}

std::uint16_t SourceTree::DeviceNumber(std::uint64_t device)
{
    const auto known = std::ranges::find(devices_, device) - devices_.begin();
    if (known == std::ssize(devices_)) {
        devices_.push_back(device);
    }
    return static_cast<std::uint16_t>(known);
}

std::uint16_t SourceTree::OwnerNumber(Owner owner)
{
    constexpr std::size_t kMost = 0xFFFF;
    constexpr Owner kNobody {0xFFFE, 0xFFFE}; // of all that come when there are too many
    if (!owners_.empty() && owners_.front() == owner) {
        return 0; // nearly all of a tree have one owner
    }
    const Owner counted = owners_.size() < kMost ? owner : kNobody;
    const auto [known, isNew]
        = ownerNumbers_.try_emplace(counted, static_cast<std::uint16_t>(owners_.size()));
    if (isNew) {
        owners_.push_back(counted);
    }
    return known->second;
}

NodeId SourceTree::NewNode(NameRef name, const NodeFacts& facts)
{
    const NodeId id = count_++;
    if ((id & kChunkMask) == 0) {
        chunks_.push_back(std::make_unique<Chunk>(kChunkMask + 1));
    }
    At(id).name = name;
    SetFacts(id, facts);
    return id;
}

NodeId SourceTree::NewLink(NameRef name, const NodeFacts& facts, std::string text)
{
    const NodeId id = NewNode(name, facts);
    linkTexts_.emplace(id, std::move(text));
    return id;
}

void SourceTree::SetFacts(NodeId id, const NodeFacts& facts)
{
    Node& node = At(id);
    node.size = facts.size;
    node.inode = facts.inode;
    node.statusChanged = facts.statusChanged;
    node.modifiedSeconds = facts.modified.seconds;
    node.modifiedMicros = facts.modified.microseconds;
    node.mode = facts.mode;
    node.device = DeviceNumber(facts.device);
    node.owner = OwnerNumber(facts.owner);
    node.kind = facts.kind;
    node.mayBeShared = facts.mayBeShared;
}

void SourceTree::ReplaceLink(NodeId link, const NodeFacts& facts)
{
    linkTexts_.erase(link);
    SetFacts(link, facts);
}

void SourceTree::Append(NodeId parent, NodeId last, NodeId child)
{
    At(child).parent = parent;
    if (last == kNoNode) {
        At(child).nextSibling = At(parent).firstChild;
        At(parent).firstChild = child;
    } else {
        At(child).nextSibling = At(last).nextSibling;
        At(last).nextSibling = child;
    }
    ++At(parent).childCount;
    if (const auto index = childIndexes_.find(parent); index != childIndexes_.end()) {
        index->second.emplace(Name(child), child);
    }
}

void SourceTree::Link(NodeId parent, NodeId child) { Append(parent, kNoNode, child); }

void SourceTree::Remove(NodeId child)
{
    const NodeId parent = At(child).parent;
    madeFile_ = madeFile_ == child ? kNoNode : madeFile_;
    NodeId* link = &At(parent).firstChild;
    while (*link != child) {
        link = &At(*link).nextSibling;
    }
    *link = At(child).nextSibling;
    At(child).parent = kNoNode;
    --At(parent).childCount;
    if (const auto index = childIndexes_.find(parent); index != childIndexes_.end()) {
        index->second.erase(Name(child));
    }
}

void SourceTree::SetSourcePath(NodeId id, std::string path) { sourcePaths_[id] = std::move(path); }

std::string SourceTree::SourcePath(NodeId id) const
{
    std::vector<std::string_view> names;
    NodeId at = id;
    auto own = sourcePaths_.find(at);
    while (own == sourcePaths_.end()) {
        names.push_back(Name(at));
        at = (*this)[at].parent;
        if (at == kNoNode) {
            return {}; // made for the disc, like all above it
        }
        own = sourcePaths_.find(at);
    }
    return JoinUpwards(own->second, names);
}

std::string SourceTree::ImagePath(NodeId id) const
{
    std::vector<std::string_view> names;
    for (NodeId at = id; at != kRoot && at != kNoNode; at = (*this)[at].parent) {
        names.push_back(Name(at));
    }
    return JoinUpwards({}, names);
}

const SourceTree::ChildIndex& SourceTree::IndexOf(NodeId directory) const
{
    const auto [place, isNew] = childIndexes_.try_emplace(directory);
    if (isNew) {
        place->second.reserve((*this)[directory].childCount);
        for (NodeId id = (*this)[directory].firstChild; id != kNoNode;
             id = (*this)[id].nextSibling) {
            place->second.emplace(Name(id), id);
        }
    }
    return place->second;
}

NodeId SourceTree::NextBelow(NodeId top, NodeId node) const
{
    if ((*this)[node].firstChild != kNoNode) {
        return (*this)[node].firstChild;
    }
    for (; node != top; node = (*this)[node].parent) {
        if ((*this)[node].nextSibling != kNoNode) {
            return (*this)[node].nextSibling;
        }
    }
    return kNoNode;
}

NodeId SourceTree::Find(NodeId directory, std::string_view name) const
{
    const ChildIndex& index = IndexOf(directory);
    const auto found = index.find(name);
    return found == index.end() ? kNoNode : found->second;
}

Result<NodeId> SourceTree::FindPath(std::string_view path) const
{
    NodeId at = kRoot;
    std::string_view rest = path;
    while (!rest.empty()) {
        const std::size_t slash = rest.find('/');
        const std::string_view name = rest.substr(0, slash);
        if (!IsValidName(name) || slash == rest.size() - 1) {
            return Error {ErrorKind::InvalidPath, std::string(path)};
        }
        at = (*this)[at].IsDirectory() ? Find(at, name) : kNoNode;
        if (at == kNoNode) {
            return Error {ErrorKind::ItemNotFound, std::string(path)};
        }
        rest = slash == std::string_view::npos ? std::string_view {} : rest.substr(slash + 1);
    }
    return at;
}

Result<NodeId> SourceTree::ParentFor(std::string_view path, std::string_view& name) const
{
    const std::size_t slash = path.rfind('/');
    const bool inRoot = slash == std::string_view::npos;
    name = inRoot ? path : path.substr(slash + 1);
    if (!IsValidName(name) || slash == 0) {
        return Error {ErrorKind::InvalidPath, std::string(path)};
    }
    NodeId parent = kRoot;
    if (!inRoot) {
        const Result<NodeId> found = FindPath(path.substr(0, slash));
        if (!found) {
            const bool missing = found.Failure().kind == ErrorKind::ItemNotFound;
            return Error {
                missing ? ErrorKind::DirectoryNotFound : ErrorKind::InvalidPath, std::string(path)};
        }
        parent = *found;
    }
    if (!(*this)[parent].IsDirectory()) {
        return Error {ErrorKind::NotADirectory, std::string(path)};
    }
    if (Find(parent, name) != kNoNode) {
        return Error {ErrorKind::NameTaken, std::string(path)};
    }
    return parent;
}

Result<NodeId> SourceTree::AddDirectory(std::string_view path, TimeStamp modified)
{
    std::string_view name;
    const Result<NodeId> parent = ParentFor(path, name);
    if (!parent) {
        return parent.Failure();
    }
    NodeFacts facts;
    facts.kind = NodeKind::Directory;
    facts.mode = kMadeDirectoryMode;
    facts.modified = modified;
    const NodeId id = NewNode(ownNames_.Add(name), facts);
    SetSourcePath(id, {}); // it has no source, whatever its parent comes from
    Link(*parent, id);
    return id;
}

Result<NodeId> SourceTree::AddFile(std::string_view path, const std::string& sourcePath)
{
    std::string_view name;
    const Result<NodeId> parent = ParentFor(path, name);
    if (!parent) {
        return parent.Failure();
    }
    Result<Found> found = LookAt(AT_FDCWD, sourcePath.c_str());
    if (!found || found->facts.IsDirectory()) {
        const ErrorKind kind = found ? ErrorKind::FileNotOpened : found.Failure().kind;
        return Error {kind, sourcePath, found ? 0 : found.Failure().systemError};
    }
    // A folder added before or after it may hold the same file.
    found->facts.mayBeShared = found->facts.kind == NodeKind::File;
    const NodeId id = found->facts.kind == NodeKind::Link
        ? NewLink(ownNames_.Add(name), found->facts, std::move(found->linkText))
        : NewNode(ownNames_.Add(name), found->facts);
    SetSourcePath(id, sourcePath);
    Link(*parent, id);
    return id;
}

Result<NodeId> SourceTree::AddMadeFile(std::string_view name, const NodeFacts& facts)
{
    const Result<NodeId> parent = ParentFor(name, name);
    if (!parent) {
        return parent.Failure();
    }
    madeFile_ = NewNode(ownNames_.Add(name), facts);
    SetSourcePath(madeFile_, {});
    Link(*parent, madeFile_);
    return madeFile_;
}

void SourceTree::Attach(NodeId target, NodeId detached, bool asChild)
{
    if (!asChild) {
        Merge(target, detached);
        return;
    }
    const NodeId old = Find(target, Name(detached));
    if (old != kNoNode && (*this)[old].IsDirectory()) {
        Merge(old, detached);
        return;
    }
    if (old != kNoNode) {
        Remove(old);
    }
    Link(target, detached);
}

void SourceTree::Merge(NodeId target, NodeId detached)
{
    const std::string source = SourcePath(detached);
    if ((*this)[target].childCount == 0) { // moves the whole list, however long
        for (NodeId id = (*this)[detached].firstChild; id != kNoNode;
             id = (*this)[id].nextSibling) {
            At(id).parent = target;
        }
        At(target).firstChild = (*this)[detached].firstChild;
        At(target).childCount = (*this)[detached].childCount;
        At(detached).firstChild = kNoNode;
        At(detached).childCount = 0;
        childIndexes_.erase(target);
        childIndexes_.erase(detached);
        SetSourcePath(target, source);
        return;
    }
    NodeId next = kNoNode;
    for (NodeId id = (*this)[detached].firstChild; id != kNoNode; id = next) {
        next = (*this)[id].nextSibling;
        SetSourcePath(id, source + '/' + std::string(Name(id)));
        const NodeId old = Find(target, Name(id));
        if (old != kNoNode && (*this)[old].IsDirectory() && (*this)[id].IsDirectory()) {
            Merge(old, id);
            continue;
        }
        if (old != kNoNode) {
            Remove(old);
        }
        Link(target, id);
    }
}

} // namespace velmora::image
