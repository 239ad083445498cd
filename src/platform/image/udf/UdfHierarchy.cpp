// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/udf/UdfHierarchy.h"

#include "image/names/UdfNames.h"
#include "image/udf/UdfLink.h"

#include <algorithm>
#include <sys/stat.h>

namespace velmora::image {

namespace {

constexpr std::uint64_t kRememberEvery
    = std::uint64_t {64} * 1024;              // bytes of identifiers between remembered places
constexpr std::uint32_t kFirstEntryBlock = 2; // after the file set and its terminator
constexpr std::uint64_t kFirstUniqueId = 16;  // 1 to 15 are reserved (UDF 3.2.1.1)
constexpr std::uint32_t kMaxDirectoryLinks = 0xFFFF;

/// Bytes of an identifier with a name of this length.
std::uint32_t LengthWith(std::size_t name)
{
    return static_cast<std::uint32_t>((sizeof(FileIdentifierHead) + name + 3) / 4 * 4);
}

std::uint64_t NextBlock(std::uint64_t at)
{
    return (at + kSectorSize - 1) / kSectorSize * kSectorSize;
}

/// Each of owner, group and others has five bits, of which the lower three are those of a mode.
std::uint32_t PermissionsOf(std::uint32_t mode)
{
    return (mode & 0007U) | (mode & 0070U) << 2U | (mode & 0700U) << 4U;
}

std::uint16_t ModeFlagsOf(std::uint32_t mode)
{
    unsigned flags = 0;
    flags |= (mode & S_ISUID) != 0 ? unsigned {kUdfSetUser} : 0;
    flags |= (mode & S_ISGID) != 0 ? unsigned {kUdfSetGroup} : 0;
    flags |= (mode & S_ISVTX) != 0 ? unsigned {kUdfSticky} : 0;
    return static_cast<std::uint16_t>(flags);
}

} // namespace

const NamedEntry& UdfHierarchy::EntryAt(const Position& position) const
{
    return tree_.entries[tree_.directories[position.directory].firstEntry + position.entry - 1];
}

std::uint32_t UdfHierarchy::LengthOf(const Position& position) const
{
    return LengthWith(position.entry == 0 ? 0 : tree_.FormOf(EntryAt(position)).Size());
}

/// Moves past an identifier of that length, to the next; false after the last one of the last
/// directory.
bool UdfHierarchy::Advance(Position& position, std::uint32_t length) const
{
    position.at += length;
    if (position.entry != 0) {
        const Node& node = source_[EntryAt(position).node];
        position.subdirectory += node.IsDirectory() ? 1 : 0;
        position.link += node.IsLink() ? 1 : 0;
    }
    if (++position.entry <= tree_.directories[position.directory].entryCount) {
        return true;
    }
    position.at = NextBlock(position.at);
    position.entry = 0;
    position.subdirectory = 0;
    return ++position.directory < tree_.directories.size();
}

void UdfHierarchy::Measure(const std::stop_token& stop)
{
    Position position;
    bool more = true;
    while (more && !stop.stop_requested()) {
        if (remembered_.empty() || position.at >= remembered_.back().at + kRememberEvery) {
            remembered_.push_back(position);
        }
        NamedDirectory& directory = tree_.directories[position.directory];
        if (position.entry == 0) {
            directory.sector = static_cast<std::uint32_t>(position.at / kSectorSize);
        } else {
            Count(EntryAt(position).node);
        }
        const std::uint32_t length = LengthOf(position);
        directory.bytes += length;
        more = Advance(position, length);
    }
    directoryBlocks_ = position.at / kSectorSize;
    if (!more) {
        FollowNumbers();
    }
}

/// The names that took a number, with their forms: none in a tree of ordinary names.
std::unordered_map<NodeId, std::string_view> UdfHierarchy::NumberedForms() const
{
    const UdfNames rules;
    std::unordered_map<NodeId, std::string_view> numbered;
    for (const NamedDirectory& directory : tree_.directories) {
        for (std::uint32_t i = 0; directory.hasClashes && i < directory.entryCount; ++i) {
            const NamedEntry& entry = tree_.entries[directory.firstEntry + i];
            if (entry.HasSourceName()) {
                continue;
            }
            const std::string_view form = tree_.names[entry.name];
            if (form != rules.Form(source_.Name(entry.node), NameOf::File)) {
                numbered.emplace(entry.node, form);
            }
        }
    }
    return numbered;
}

/// A link to an entry whose name took a number names it by that.
void UdfHierarchy::FollowNumbers()
{
    if (links_.empty()) {
        return;
    }
    const auto numbered = NumberedForms();
    for (std::size_t i = 0; !numbered.empty() && i < links_.size(); ++i) {
        std::vector<std::string_view> forms;
        for (const NodeId node : targets_.NamedBy(links_[i])) {
            const auto form = numbered.find(node);
            forms.push_back(form == numbered.end() ? std::string_view {} : form->second);
        }
        const bool isNumbered
            = std::ranges::any_of(forms, [](std::string_view form) { return !form.empty(); });
        if (isNumbered) {
            ownComponents_.emplace(links_[i], PathComponents(source_.LinkText(links_[i]), forms));
        }
    }
}

std::string UdfHierarchy::ComponentsOf(NodeId link) const
{
    const auto own = ownComponents_.find(link);
    return own == ownComponents_.end() ? PathComponents(source_.LinkText(link)) : own->second;
}

void UdfHierarchy::Count(NodeId node)
{
    fileCount_ += source_[node].IsDirectory() ? 0 : 1;
    if (source_[node].IsLink()) {
        links_.push_back(node);
    }
}

/// File entries in all.
std::uint32_t UdfHierarchy::EntryCount() const
{
    return FirstLinkEntry() + static_cast<std::uint32_t>(links_.size());
}

std::uint64_t UdfHierarchy::Blocks() const
{
    return kFirstEntryBlock + EntryCount() + directoryBlocks_;
}

void UdfHierarchy::AddTo(Contents& contents)
{
    contents.Add(tree_);
    contents.AddMadeFile();
    contentCount_ = static_cast<std::uint32_t>(contents.All().size());
}

void UdfHierarchy::Place(const UdfPlaces& places)
{
    places_ = places;
    firstDirectoryBlock_ = kFirstEntryBlock + EntryCount();
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
    return kFirstUniqueId + EntryCount() + tree_.entries.size();
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
    const std::uint64_t end = first + std::uint64_t {EntryCount()} * kSectorSize;
    if (!window.Touches(first, end)) {
        return;
    }
    const std::uint64_t from = (std::max(window.Begin(), first) - first) / kSectorSize;
    const std::uint64_t to = (std::min(window.End(), end) - first + kSectorSize - 1) / kSectorSize;
    for (std::uint64_t number = from; number < to; ++number) {
        window.Put(
            first + number * kSectorSize, EntryOf(static_cast<std::uint32_t>(number), contents));
    }
}

std::string UdfHierarchy::EntryOf(std::uint32_t number, const Contents& contents) const
{
    if (number < DirectoryCount()) {
        return DirectoryEntry(number);
    }
    return number < FirstLinkEntry() ? ContentEntry(number - DirectoryCount(), contents)
                                     : LinkEntry(number - FirstLinkEntry());
}

/// What an entry says about any node. If owners aren't kept nobody may write, as the disc is
/// read-only.
UdfEntryFacts UdfHierarchy::FactsOf(NodeId node) const
{
    constexpr std::uint32_t kNotWritten = 0555;
    const Attributes attributes = attributes_.Of(node);
    UdfEntryFacts facts;
    facts.modified = attributes.modified;
    if (!attributes_.KeepsOwners()) {
        facts.permissions = PermissionsOf(attributes.mode & kNotWritten);
        return facts;
    }
    facts.permissions = PermissionsOf(attributes.mode);
    facts.modeFlags = ModeFlagsOf(attributes.mode);
    facts.userId = attributes.owner.user;
    facts.groupId = attributes.owner.group;
    return facts;
}

std::string UdfHierarchy::DirectoryEntry(std::uint32_t number) const
{
    const NamedDirectory& directory = tree_.directories[number];
    UdfEntryFacts facts = FactsOf(directory.node);
    facts.type = UdfFileType::Directory;
    // The name that leads to it (the root: its own parent identifier) and its subdirectories'
    // parent identifiers.
    facts.links
        = static_cast<std::uint16_t>(std::min(directory.subdirectoryCount + 1, kMaxDirectoryLinks));
    facts.size = directory.bytes;
    facts.uniqueId = UniqueIdOf(number);
    facts.firstBlock = directory.sector;
    return MakeFileEntry(facts, places_, kFirstEntryBlock + number);
}

std::string UdfHierarchy::ContentEntry(std::uint32_t number, const Contents& contents) const
{
    const Content& content = contents.All()[number];
    const std::uint32_t entryNumber = DirectoryCount() + number;
    UdfEntryFacts facts = FactsOf(content.node);
    facts.links = content.links;
    facts.size = source_[content.node].size;
    facts.uniqueId = UniqueIdOf(entryNumber);
    facts.firstBlock = content.sector - places_.partitionStart;
    facts.dataInOtherPartition = places_.HasMetadataPartition();
    return MakeFileEntry(facts, places_, kFirstEntryBlock + entryNumber);
}

std::string UdfHierarchy::LinkEntry(std::uint32_t number) const
{
    const NodeId link = links_[number];
    const std::string components = ComponentsOf(link);
    const std::uint32_t entryNumber = FirstLinkEntry() + number;
    UdfEntryFacts facts = FactsOf(link);
    facts.type = UdfFileType::SymbolicLink;
    facts.links = 1;
    facts.size = components.size();
    facts.uniqueId = UniqueIdOf(entryNumber);
    facts.embedded = components;
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
        const std::string identifier = Identifier(position, contents);
        window.Put(first + position.at, identifier);
        more = Advance(position, static_cast<std::uint32_t>(identifier.size()));
    }
}

/// The file entry that an identifier leads to.
LongAllocation UdfHierarchy::IcbOfEntry(const Position& position, const Contents& contents) const
{
    const NamedDirectory& directory = tree_.directories[position.directory];
    if (position.entry == 0) {
        return IcbOf(directory.parent, UniqueIdOf(directory.parent));
    }
    const NodeId node = EntryAt(position).node;
    if (source_[node].IsDirectory()) {
        const std::uint32_t number = directory.firstSubdirectory + position.subdirectory;
        return IcbOf(number, UniqueIdOf(number));
    }
    if (source_[node].IsLink()) {
        const std::uint32_t number = FirstLinkEntry() + position.link;
        return IcbOf(number, UniqueIdOf(number));
    }
    // The first name of a content has its entry's unique ID, each further one an ID of its own.
    const std::uint32_t number = DirectoryCount() + contents.NumberOf(node);
    const bool isFirstName = contents.Of(node).node == node;
    const std::uint64_t ownId
        = kFirstUniqueId + EntryCount() + directory.firstEntry + position.entry - 1;
    return IcbOf(number, isFirstName ? UniqueIdOf(number) : ownId);
}

std::string UdfHierarchy::Identifier(const Position& position, const Contents& contents) const
{
    FileIdentifierHead head;
    RecordedName name {{}};
    head.icb = IcbOfEntry(position, contents);
    if (position.entry == 0) {
        head.characteristics = kUdfDirectory | kUdfParent;
    } else {
        const NamedEntry& entry = EntryAt(position);
        name = tree_.FormOf(entry);
        head.characteristics = source_[entry.node].IsDirectory() ? kUdfDirectory : 0;
    }
    head.nameLength = static_cast<std::uint8_t>(name.Size());
    const std::uint32_t length = LengthWith(name.Size());
    std::string identifier;
    identifier.reserve(length);
    identifier += BytesOf(head);
    name.AppendTo(identifier);
    identifier.resize(length);
    const auto block = firstDirectoryBlock_ + static_cast<std::uint32_t>(position.at / kSectorSize);
    Seal(identifier, TagId::FileIdentifier, places_.TagVersion(), block);
    return identifier;
}

} // namespace velmora::image
