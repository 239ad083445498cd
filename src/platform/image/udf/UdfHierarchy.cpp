// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/udf/UdfHierarchy.h"

#include <algorithm>

namespace velmora::image {

namespace {

constexpr std::uint64_t kRememberEvery
    = std::uint64_t {64} * 1024;              // bytes of identifiers between remembered places
constexpr std::uint32_t kFirstEntryBlock = 2; // behind the file set and its terminator
constexpr std::uint64_t kFirstUniqueId = 16;  // 1 to 15 are reserved (UDF 3.2.1.1)
constexpr std::uint32_t kMaxDirectoryLinks = 0xFFFF;

std::uint64_t NextBlock(std::uint64_t at)
{
    return (at + kSectorSize - 1) / kSectorSize * kSectorSize;
}

/// Everybody may read a disc; who may run a file may still run it.
std::uint32_t PermissionsOf(const Node& node)
{
    constexpr std::uint32_t kGroup = 1U << 5U;
    constexpr std::uint32_t kOwner = 1U << 10U;
    constexpr std::uint32_t kEverybody = 1 | kGroup | kOwner;
    std::uint32_t permissions = kUdfRead * kEverybody;
    const std::uint32_t mode = node.isDirectory ? 0111 : node.mode;
    if ((mode & 0001U) != 0) {
        permissions |= kUdfExecute;
    }
    if ((mode & 0010U) != 0) {
        permissions |= kUdfExecute * kGroup;
    }
    if ((mode & 0100U) != 0) {
        permissions |= kUdfExecute * kOwner;
    }
    return permissions;
}

TimeStamp ModifiedOf(const Node& node) { return {node.modifiedSeconds, node.modifiedMicros}; }

} // namespace

const NamedEntry& UdfHierarchy::EntryAt(const Position& position) const
{
    return tree_.entries[tree_.directories[position.directory].firstEntry + position.entry - 1];
}

std::uint32_t UdfHierarchy::LengthOf(const Position& position) const
{
    const std::size_t name = position.entry == 0 ? 0 : tree_.names[EntryAt(position).name].size();
    return static_cast<std::uint32_t>((sizeof(FileIdentifierHead) + name + 3) / 4 * 4);
}

/// Moves to the next identifier; false behind the last one of the last directory.
bool UdfHierarchy::Advance(Position& position) const
{
    position.at += LengthOf(position);
    if (position.entry != 0 && source_[EntryAt(position).node].isDirectory) {
        ++position.subdirectory;
    }
    if (++position.entry <= tree_.directories[position.directory].entryCount) {
        return true;
    }
    position.at = NextBlock(position.at);
    position.entry = 0;
    position.subdirectory = 0;
    return ++position.directory < tree_.directories.size();
}

void UdfHierarchy::Measure()
{
    Position position;
    bool more = true;
    while (more) {
        if (remembered_.empty() || position.at >= remembered_.back().at + kRememberEvery) {
            remembered_.push_back(position);
        }
        NamedDirectory& directory = tree_.directories[position.directory];
        if (position.entry == 0) {
            directory.sector = static_cast<std::uint32_t>(position.at / kSectorSize);
        } else if (!source_[EntryAt(position).node].isDirectory) {
            ++fileCount_;
        }
        directory.bytes += LengthOf(position);
        more = Advance(position);
    }
    directoryBlocks_ = position.at / kSectorSize;
}

std::uint64_t UdfHierarchy::Blocks() const
{
    return kFirstEntryBlock + tree_.directories.size() + contentCount_ + directoryBlocks_;
}

void UdfHierarchy::AddTo(Contents& contents)
{
    contents.Add(tree_);
    contentCount_ = static_cast<std::uint32_t>(contents.All().size());
}

void UdfHierarchy::Place(const UdfPlaces& places)
{
    places_ = places;
    firstDirectoryBlock_ = kFirstEntryBlock + DirectoryCount() + contentCount_;
    for (NamedDirectory& directory : tree_.directories) {
        directory.sector += firstDirectoryBlock_;
    }
}

/// Entries are numbered directories first; the root has the unique ID 0.
std::uint64_t UdfHierarchy::UniqueIdOf(std::uint32_t entryNumber) const
{
    return entryNumber == 0 ? 0 : kFirstUniqueId + entryNumber;
}

std::uint64_t UdfHierarchy::NextUniqueId() const
{
    return kFirstUniqueId + DirectoryCount() + contentCount_ + tree_.entries.size();
}

LongAllocation UdfHierarchy::IcbOf(std::uint32_t entryNumber, std::uint64_t uniqueId) const
{
    LongAllocation icb;
    icb.length = kSectorSize;
    icb.block = kFirstEntryBlock + entryNumber;
    icb.partition = places_.StructureMap();
    if (places_.revision >= 0x0200) {
        icb.uniqueId = static_cast<std::uint32_t>(uniqueId);
    }
    return icb;
}

LongAllocation UdfHierarchy::RootIcb() const { return IcbOf(0, 0); }

void UdfHierarchy::Render(Window& window, const Contents& contents) const
{
    RenderEntries(window, contents);
    RenderIdentifiers(window, contents);
}

void UdfHierarchy::RenderEntries(Window& window, const Contents& contents) const
{
    const std::uint64_t first = (places_.structureStart + kFirstEntryBlock) * kSectorSize;
    const std::uint32_t directories = DirectoryCount();
    const std::uint64_t end = first + (std::uint64_t {directories} + contentCount_) * kSectorSize;
    if (!window.Touches(first, end)) {
        return;
    }
    const std::uint64_t from = (std::max(window.Begin(), first) - first) / kSectorSize;
    const std::uint64_t to = (std::min(window.End(), end) - first + kSectorSize - 1) / kSectorSize;
    for (std::uint64_t number = from; number < to; ++number) {
        const auto entry = static_cast<std::uint32_t>(number);
        window.Put(first + number * kSectorSize,
            entry < directories ? DirectoryEntry(entry)
                                : ContentEntry(entry - directories, contents));
    }
}

std::string UdfHierarchy::DirectoryEntry(std::uint32_t number) const
{
    const NamedDirectory& directory = tree_.directories[number];
    const Node& node = source_[directory.node];
    UdfEntryFacts facts;
    facts.type = UdfFileType::Directory;
    facts.permissions = PermissionsOf(node);
    // The name that leads to it (the root: its own parent identifier) and its subdirectories'
    // parent identifiers.
    facts.links
        = static_cast<std::uint16_t>(std::min(directory.subdirectoryCount + 1, kMaxDirectoryLinks));
    facts.size = directory.bytes;
    facts.modified = ModifiedOf(node);
    facts.uniqueId = UniqueIdOf(number);
    facts.firstBlock = directory.sector;
    return MakeFileEntry(facts, places_, kFirstEntryBlock + number);
}

std::string UdfHierarchy::ContentEntry(std::uint32_t number, const Contents& contents) const
{
    const Content& content = contents.All()[number];
    const Node& node = source_[content.node];
    const std::uint32_t entryNumber = DirectoryCount() + number;
    UdfEntryFacts facts;
    facts.permissions = PermissionsOf(node);
    facts.links = content.links;
    facts.size = node.size;
    facts.modified = ModifiedOf(node);
    facts.uniqueId = UniqueIdOf(entryNumber);
    facts.firstBlock = content.sector - places_.partitionStart;
    facts.dataInOtherPartition = places_.HasMetadataPartition();
    return MakeFileEntry(facts, places_, kFirstEntryBlock + entryNumber);
}

void UdfHierarchy::RenderIdentifiers(Window& window, const Contents& contents) const
{
    const std::uint64_t first
        = (std::uint64_t {places_.structureStart} + firstDirectoryBlock_) * kSectorSize;
    const std::uint64_t end = first + directoryBlocks_ * kSectorSize;
    if (!window.Touches(first, end)) {
        return;
    }
    const std::uint64_t begin = std::max(window.Begin(), first) - first;
    const auto behind = std::upper_bound(remembered_.begin(),
        remembered_.end(),
        begin,
        [](std::uint64_t at, const Position& position) { return at < position.at; });
    Position position = *std::prev(behind);
    bool more = true;
    while (more && first + position.at < window.End()) {
        window.Put(first + position.at, Identifier(position, contents));
        more = Advance(position);
    }
}

std::string UdfHierarchy::Identifier(const Position& position, const Contents& contents) const
{
    const NamedDirectory& directory = tree_.directories[position.directory];
    FileIdentifierHead head;
    std::string_view name;
    if (position.entry == 0) {
        head.characteristics = kUdfDirectory | kUdfParent;
        head.icb = IcbOf(directory.parent, UniqueIdOf(directory.parent));
    } else if (const NamedEntry& entry = EntryAt(position); source_[entry.node].isDirectory) {
        const std::uint32_t number = directory.firstSubdirectory + position.subdirectory;
        name = tree_.names[entry.name];
        head.characteristics = kUdfDirectory;
        head.icb = IcbOf(number, UniqueIdOf(number));
    } else {
        // The first name of a content has its entry's unique ID, each further one an ID of its own.
        const std::uint32_t number = DirectoryCount() + contents.NumberOf(entry.node);
        const bool isFirstName = contents.Of(entry.node).node == entry.node;
        const std::uint64_t ownId = kFirstUniqueId + DirectoryCount() + contentCount_
            + directory.firstEntry + position.entry - 1;
        name = tree_.names[entry.name];
        head.icb = IcbOf(number, isFirstName ? UniqueIdOf(number) : ownId);
    }
    head.nameLength = static_cast<std::uint8_t>(name.size());
    std::string identifier;
    identifier.reserve(sizeof head + name.size() + 3);
    identifier += BytesOf(head);
    identifier += name;
    identifier.resize(LengthOf(position));
    const auto block = firstDirectoryBlock_ + static_cast<std::uint32_t>(position.at / kSectorSize);
    Seal(identifier, TagId::FileIdentifier, places_.TagVersion(), block);
    return identifier;
}

} // namespace velmora::image
