// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Calendar.h"
#include "image/base/Result.h"
#include "image/source/NameArena.h"

#include <compare>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmora::image {

/// Number of a node in a SourceTree.
using NodeId = std::uint32_t;
inline constexpr NodeId kNoNode = 0xFFFFFFFF;

/// What a node is on the disc.
enum class NodeKind : std::uint8_t {
    File,
    Directory,
    Link, ///< a symbolic link that is kept as one: its text names what it leads to
};

/// The owner of an entry.
struct Owner {
    std::uint32_t user = 0;
    std::uint32_t group = 0;

    auto operator<=>(const Owner&) const = default;
};

/// What the source says about one entry.
struct NodeFacts {
    std::uint64_t size = 0;  ///< bytes; 0 for a directory and for a link
    std::uint64_t inode = 0; ///< with the device, tells hard links; 0 = none
    TimeStamp modified {};
    /// Nanoseconds: the last change of content or status as the system knows it, which can't be set
    /// back. It only serves to tell one moment from another.
    std::uint64_t statusChanged = 0;
    std::uint64_t device = 0; ///< st_dev
    std::uint16_t mode = 0;   ///< permission bits 07777
    Owner owner {};
    NodeKind kind = NodeKind::File;
    bool mayBeShared = false; ///< a file with more than one name, or named by itself

    bool IsDirectory() const { return kind == NodeKind::Directory; }
};

/// One entry of the tree, as stored: 64 bytes.
struct Node {
    std::uint64_t size = 0;
    std::uint64_t inode = 0;
    std::uint64_t statusChanged = 0; ///< as in NodeFacts
    std::int64_t modifiedSeconds = 0;
    std::uint32_t modifiedMicros = 0;
    NameRef name = 0;
    NodeId parent = kNoNode;
    NodeId firstChild = kNoNode;
    NodeId nextSibling = kNoNode;
    std::uint32_t childCount = 0;
    std::uint16_t mode = 0;
    std::uint16_t device = 0; ///< number in the tree's list of devices
    std::uint16_t owner = 0;  ///< number in the tree's list of owners
    NodeKind kind = NodeKind::File;
    bool mayBeShared = false;

    bool IsDirectory() const { return kind == NodeKind::Directory; }
    bool IsLink() const { return kind == NodeKind::Link; }
};
static_assert(sizeof(Node) == 64); // there may be millions of them

/// What goes on the disc: directories, files and symbolic links under one root, each with its name
/// on the disc and the place that its content comes from. Names are the bytes of the source,
/// without '/'.
///
/// Reading is safe from several threads; a change needs the tree for itself.
class SourceTree {
public:
    static constexpr NodeId kRoot = 0;
    /// The most bytes that a component of a path may have.
    static constexpr std::size_t kMaxNameLength = 255;

    explicit SourceTree(TimeStamp rootModified = {});

    const Node& operator[](NodeId id) const
    {
        return (*chunks_[id >> kChunkBits])[id & kChunkMask];
    }
    std::string_view Name(NodeId id) const { return names_[(*this)[id].name]; }
    /// The device that the node's source lies on (st_dev).
    std::uint64_t DeviceOf(NodeId id) const { return devices_[(*this)[id].device]; }

    /// The owner of the node's source; 0 for a directory made for the disc.
    Owner OwnerOf(NodeId id) const { return owners_[(*this)[id].owner]; }

    /// Nodes made so far, those that were replaced included.
    std::uint32_t NodeCount() const { return count_; }

    /// The text of a symbolic link, as the source has it.
    std::string_view LinkText(NodeId link) const { return linkTexts_.at(link); }
    /// All symbolic links made so far with their texts, those that were replaced included.
    const std::unordered_map<NodeId, std::string>& Links() const { return linkTexts_; }

    /// Native path of the file or folder that the node comes from; empty for a directory made for
    /// the disc.
    std::string SourcePath(NodeId id) const;
    /// Whether the node has a source path of its own, rather than its parent's path and its name.
    bool HasOwnSourcePath(NodeId id) const { return sourcePaths_.contains(id); }
    /// Path in the image, '/' between the names, no leading one.
    std::string ImagePath(NodeId id) const;

    /// The next node of a subtree, directories before what is in them; kNoNode after the last.
    NodeId NextBelow(NodeId top, NodeId node) const;

    /// The child of that name, or kNoNode.
    NodeId Find(NodeId directory, std::string_view name) const;
    /// The node at a path of the image; "" is the root.
    /// Errors: InvalidPath, ItemNotFound.
    Result<NodeId> FindPath(std::string_view path) const;

    /// Makes a directory that exists only on the disc.
    /// Errors: InvalidPath, DirectoryNotFound, NotADirectory (of the parent), NameTaken.
    Result<NodeId> AddDirectory(std::string_view path, TimeStamp modified);
    /// Puts a file of the machine at a path of the image; a symbolic link is put there as one.
    /// Nothing is read but its size and times, and the text of a link.
    /// Errors: as AddDirectory; NotFound, FileNotOpened, FileUnreadable (of a link), SpecialFile.
    Result<NodeId> AddFile(std::string_view path, const std::string& sourcePath);

    /// Puts a file into the root whose bytes come from the image itself. There is at most one.
    /// Errors: as AddDirectory.
    Result<NodeId> AddMadeFile(std::string_view name, const NodeFacts& facts);
    /// That file; kNoNode for none.
    NodeId MadeFile() const { return madeFile_; }

    /// Makes a detached node. Its name is one of Names().
    NodeId NewNode(NameRef name, const NodeFacts& facts);
    /// Makes a detached symbolic link.
    NodeId NewLink(NameRef name, const NodeFacts& facts, std::string text);
    /// Attaches a node after the last child that this call attached to the parent; `last` is that
    /// child, or kNoNode for the first.
    void Append(NodeId parent, NodeId last, NodeId child);
    /// Takes a node, and everything below it, out of the image.
    void Remove(NodeId child);
    /// Says where a node's content comes from, if not from its name in its parent's path.
    void SetSourcePath(NodeId id, std::string path);
    void SetFacts(NodeId id, const NodeFacts& facts);
    /// Makes a symbolic link what it leads to, a file or an empty directory.
    void ReplaceLink(NodeId link, const NodeFacts& facts);

    /// Attaches a detached directory's children to `target`, or the directory itself when
    /// `asChild`. Where names meet, directories are merged and otherwise the newcomer wins.
    void Attach(NodeId target, NodeId detached, bool asChild);

    NameArena& Names() { return names_; }

private:
    static constexpr std::uint32_t kChunkBits = 10;
    static constexpr std::uint32_t kChunkMask = (1U << kChunkBits) - 1;
    using Chunk = std::vector<Node>;

    Node& At(NodeId id) { return (*chunks_[id >> kChunkBits])[id & kChunkMask]; }
    Result<NodeId> ParentFor(std::string_view path, std::string_view& name) const;
    void Link(NodeId parent, NodeId child);
    void Merge(NodeId target, NodeId detached);
    std::uint16_t DeviceNumber(std::uint64_t device);
    std::uint16_t OwnerNumber(Owner owner);

    using ChildIndex = std::unordered_map<std::string_view, NodeId>;
    const ChildIndex& IndexOf(NodeId directory) const;

    NameArena names_;
    NameArena::Writer ownNames_ {names_};
    std::vector<std::unique_ptr<Chunk>> chunks_;
    std::uint32_t count_ = 0;
    NodeId madeFile_ = kNoNode;
    std::vector<std::uint64_t> devices_;
    std::vector<Owner> owners_;
    std::map<Owner, std::uint16_t> ownerNumbers_; // places in owners_
    std::unordered_map<NodeId, std::string> sourcePaths_;
    std::unordered_map<NodeId, std::string> linkTexts_;
    mutable std::unordered_map<NodeId, ChildIndex>
        childIndexes_; // made at the first search of a directory
};

} // namespace velmora::image
