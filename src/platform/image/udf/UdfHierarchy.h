// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/base/Window.h"
#include "image/contents/Contents.h"
#include "image/names/NamedTree.h"
#include "image/source/Attributes.h"
#include "image/source/LinkTargets.h"
#include "image/udf/UdfFileFormat.h"

#include <stop_token>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmora::image {

/// Where a UDF volume lies in the image. With a metadata partition (UDF 2.50) the file structure
/// has a partition of its own, whose blocks are the content of the metadata file.
struct UdfPlaces {
    std::uint16_t revision = 0x0102;
    std::uint32_t partitionStart = 0;  ///< sector
    std::uint32_t partitionLength = 0; ///< sectors
    std::uint32_t structureStart
        = 0; ///< sector of block 0 of the partition with the file structure
    std::uint32_t structureBlocks = 0;
    std::uint32_t mirrorSector
        = 0; ///< of the metadata mirror's file entry; the main one is at partitionStart
    std::uint32_t reserveSequence = 0; ///< sector
    std::uint32_t lastSector = 0;      ///< of the image

    bool HasMetadataPartition() const { return revision >= 0x0250; }
    std::uint16_t TagVersion() const { return revision >= 0x0200 ? 3 : 2; }
    /// Number of the partition map that the file structure belongs to.
    std::uint16_t StructureMap() const { return HasMetadataPartition() ? 1 : 0; }
};

/// A file entry with its allocation descriptors, sealed.
struct UdfEntryFacts {
    UdfFileType type = UdfFileType::File;
    std::uint32_t permissions = 0;
    std::uint16_t modeFlags = 0; ///< UdfModeFlags
    std::uint32_t userId = kNoUdfOwner;
    std::uint32_t groupId = kNoUdfOwner;
    std::uint16_t links = 0;
    std::uint64_t size = 0; ///< bytes
    TimeStamp modified {};
    std::uint64_t uniqueId = 0;
    std::string_view embedded {};      ///< the data, if the entry itself holds them
    std::uint32_t firstBlock = 0;      ///< of its data
    bool dataInOtherPartition = false; ///< the data lie in the plain partition, the entry doesn't
    std::uint64_t longestExtent = kMaxUdfExtent; ///< bytes, whole blocks
};
std::string MakeFileEntry(const UdfEntryFacts& facts, const UdfPlaces& places, std::uint32_t block);

/// Largest file that one file entry can describe, bytes.
std::uint64_t MaxUdfFileSize(std::uint16_t revision);

/// The file structure of a UDF volume: file set, file entries, directories. Block 0 is the file set
/// descriptor; the entries follow, those of directories first and those of symbolic links last;
/// then the directories, each from a block of its own. Any range can be made without what lies
/// before it.
class UdfHierarchy {
public:
    UdfHierarchy(
        const SourceTree& source, const LinkTargets& targets, const AttributeRules& attributes)
        : source_(source)
        , targets_(targets)
        , attributes_(attributes)
    {
    }

    /// The names; to be filled before Measure.
    NamedTree& Tree() { return tree_; }
    const NamedTree& Tree() const { return tree_; }

    /// Finds every directory's place.
    /// @param stop  asks to give up: the lengths are then unusable
    void Measure(const std::stop_token& stop);
    /// Adds its files to the image's contents, before any other tree's: each gets an entry.
    void AddTo(Contents& contents);
    /// Blocks of the whole structure; after AddTo.
    std::uint64_t Blocks() const;
    /// Says where the structure lies.
    void Place(const UdfPlaces& places);

    std::uint32_t FileCount() const { return fileCount_; } ///< names of files and links
    std::uint32_t DirectoryCount() const
    {
        return static_cast<std::uint32_t>(tree_.directories.size());
    }
    std::uint64_t NextUniqueId() const;
    LongAllocation RootIcb() const;

    /// Fills in the window's part of file entries and directories; the window holds zeros before.
    void Render(Window& window, const Contents& contents) const;

private:
    /// Where an identifier stands. Entry 0 is the parent's.
    struct Position {
        std::uint32_t directory = 0;
        std::uint32_t entry = 0;
        std::uint32_t subdirectory = 0; // subdirectories that came before it
        std::uint32_t link = 0;         // symbolic links that came before it, in the whole tree
        std::uint64_t at = 0;           // bytes from the first directory's start
    };

    std::uint32_t LengthOf(const Position& position) const;
    bool Advance(Position& position, std::uint32_t length) const;
    void Count(NodeId node);
    std::unordered_map<NodeId, std::string_view> NumberedForms() const;
    void FollowNumbers();
    std::string ComponentsOf(NodeId link) const;
    const NamedEntry& EntryAt(const Position& position) const;

    void RenderEntries(Window& window, const Contents& contents) const;
    void RenderIdentifiers(Window& window, const Contents& contents) const;
    UdfEntryFacts FactsOf(NodeId node) const;
    std::string DirectoryEntry(std::uint32_t number) const;
    std::string ContentEntry(std::uint32_t number, const Contents& contents) const;
    std::string LinkEntry(std::uint32_t number) const;
    std::string EntryOf(std::uint32_t number, const Contents& contents) const;
    std::uint32_t FirstLinkEntry() const { return DirectoryCount() + contentCount_; }
    std::uint32_t EntryCount() const;
    std::string Identifier(const Position& position, const Contents& contents) const;
    LongAllocation IcbOfEntry(const Position& position, const Contents& contents) const;
    LongAllocation IcbOf(std::uint32_t entryNumber, std::uint64_t uniqueId) const;
    std::uint64_t UniqueIdOf(std::uint32_t entryNumber) const;

    const SourceTree& source_;
    const LinkTargets& targets_;
    const AttributeRules& attributes_;
    NamedTree tree_;
    std::vector<Position> remembered_;
    std::vector<NodeId> links_; // in the tree's order
    std::unordered_map<NodeId, std::string>
        ownComponents_; // of links that name an entry whose name took a number
    std::uint32_t fileCount_ = 0;
    std::uint32_t contentCount_ = 0;
    std::uint64_t directoryBlocks_ = 0;
    std::uint32_t firstDirectoryBlock_ = 0;
    UdfPlaces places_;
};

} // namespace velmora::image
