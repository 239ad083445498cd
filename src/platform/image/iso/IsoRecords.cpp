// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/ContinuationAreas.h"
#include "image/iso/IsoHierarchy.h"

#include <algorithm>

// What stands in a directory record, and how long it is.

namespace velmora::image {

namespace {

constexpr std::uint32_t kMaxRecord
    = 254; // bytes: the length fits one byte and is even (ECMA-119 9.1.1)
constexpr std::string_view kVersion = ";1";

std::uint32_t Even(std::uint32_t length) { return length + length % 2; }

/// Whether the name is what readers without Rock Ridge make of the identifier: lower case, no dot
/// at the end.
bool IsPlainName(std::string_view name, std::string_view form)
{
    if (form.ends_with('.')) {
        form.remove_suffix(1);
    }
    const auto lower
        = [](char c) { return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c); };
    return std::equal(name.begin(), name.end(), form.begin(), form.end(), [&](char a, char b) {
        return a == lower(b);
    });
}

std::uint32_t AlternateNameLength(std::size_t nameLength)
{
    const std::size_t pieces
        = std::max<std::size_t>(1, (nameLength + kMaxNamePiece - 1) / kMaxNamePiece);
    return static_cast<std::uint32_t>(nameLength + pieces * sizeof(AlternateNameHead));
}

} // namespace

const NamedEntry& IsoHierarchy::EntryAt(const Position& position) const
{
    const NamedDirectory& directory = tree_.directories[position.directory];
    return tree_.entries[directory.firstEntry + position.entry - kOwnRecords];
}

const NamedDirectory* IsoHierarchy::DirectoryOf(const Position& position) const
{
    const NamedDirectory& directory = tree_.directories[position.directory];
    if (position.entry == kSelf) {
        return &directory;
    }
    if (position.entry == kParent) {
        return &tree_.directories[directory.parent];
    }
    if (!source_[EntryAt(position).node].IsDirectory()) {
        return nullptr;
    }
    return &tree_.directories[directory.firstSubdirectory + position.subdirectory];
}

std::uint32_t IsoHierarchy::IdentifierLength(const NamedEntry& entry) const
{
    const auto length = static_cast<std::uint32_t>(tree_.FormOf(entry).Size());
    const bool hasVersion = kind_ != HierarchyKind::Joliet && !source_[entry.node].IsDirectory();
    return length + (hasVersion ? static_cast<std::uint32_t>(kVersion.size()) : 0);
}

std::uint32_t IsoHierarchy::ExtentCount(const Position& position) const
{
    if (position.entry < kOwnRecords) {
        return 1;
    }
    const std::uint64_t size = SizeOf(EntryAt(position).node);
    if (size <= kMaxSingleExtent) {
        return 1;
    }
    return static_cast<std::uint32_t>((size + kMaxInnerExtent - 1) / kMaxInnerExtent);
}

bool IsoHierarchy::IsKeptLink(NodeId node) const
{
    return kind_ == HierarchyKind::RockRidge && source_[node].IsLink();
}

/// Bytes of the data that a node's records lead to.
std::uint64_t IsoHierarchy::SizeOf(NodeId node) const
{
    return IsKeptLink(node) ? 0 : source_[links_.FileBehind(node)].size;
}

IsoHierarchy::Shape IsoHierarchy::ShapeOf(const Position& position) const
{
    const bool isOwn = position.entry < kOwnRecords;
    const std::uint32_t identifier = isOwn ? 1 : IdentifierLength(EntryAt(position));
    std::uint32_t length
        = Even(static_cast<std::uint32_t>(sizeof(DirectoryRecordHead)) + identifier);
    if (kind_ != HierarchyKind::RockRidge) {
        return {length, 0};
    }

    constexpr auto kAttributes
        = static_cast<std::uint32_t>(sizeof(PosixAttributes) + sizeof(TimeStamps));
    if (isOwn) {
        const bool isRoot = position.directory == 0 && position.entry == kSelf;
        if (isRoot) {
            length += static_cast<std::uint32_t>(
                sizeof(SharingIndicator) + sizeof(ExtensionReference));
        }
        return {Even(length + kAttributes), 0};
    }
    const NodeId node = EntryAt(position).node;
    const std::uint32_t fields = source_[node].IsLink()
        ? LengthInAreas(SystemUse(position, 1))
        : kAttributes + AlternateNameLength(source_.Name(node).size());
    if (length + fields <= kMaxRecord && !IsConfusing(position)) {
        return {Even(length + fields), 0};
    }
    return {Even(length + static_cast<std::uint32_t>(sizeof(Continuation))), fields};
}

/// libcdio shows plain readers a mixture: the Rock Ridge name of a record, made lower case. It then
/// does not find a folder again whose identifier is another name, and takes names for one that
/// differ in case. It never looks into continuation areas: there the fields of such entries do no
/// harm.
bool IsoHierarchy::IsConfusing(const Position& position) const
{
    const NamedEntry& entry = EntryAt(position);
    const bool matters
        = source_[entry.node].IsDirectory() || tree_.directories[position.directory].hasClashes;
    return matters && !IsPlainName(source_.Name(entry.node), tree_.FormOf(entry).Bytes());
}

IsoHierarchy::Record IsoHierarchy::MakeRecord(
    const Position& position, const Shape& shape, const Contents& contents) const
{
    const NamedDirectory* directory = DirectoryOf(position);
    const NodeId node = directory ? directory->node : EntryAt(position).node;
    DirectoryRecordHead head;
    head.recordLength = static_cast<std::uint8_t>(shape.recordLength);
    head.time = ToRecordTime(attributes_.Of(node).modified.seconds);
    head.identifierLength = static_cast<std::uint8_t>(
        position.entry < kOwnRecords ? 1 : IdentifierLength(EntryAt(position)));
    if (directory) {
        head.extentStart = directory->sector;
        head.dataLength = directory->bytes;
        head.flags = kFlagDirectory;
    } else if (!IsKeptLink(node)) {
        PointAtFile(head, position, contents);
    }
    Record record;
    record.bytes.reserve(shape.recordLength);
    record.bytes += BytesOf(head);
    AppendIdentifier(record.bytes, position);
    if (kind_ == HierarchyKind::RockRidge) {
        AppendSystemUse(record, position, shape, contents);
    }
    record.bytes.resize(shape.recordLength);
    return record;
}

void IsoHierarchy::PointAtFile(
    DirectoryRecordHead& head, const Position& position, const Contents& contents) const
{
    const NodeId node = EntryAt(position).node;
    const bool isLast = position.extent + 1 == ExtentCount(position);
    const std::uint64_t before = position.extent * kMaxInnerExtent;
    const std::uint64_t length = isLast ? SizeOf(node) - before : kMaxInnerExtent;
    head.extentStart = contents.Of(node).sector + static_cast<std::uint32_t>(before / kSectorSize);
    head.dataLength = static_cast<std::uint32_t>(length);
    head.flags = isLast ? 0 : kFlagMultiExtent;
}

void IsoHierarchy::AppendIdentifier(std::string& record, const Position& position) const
{
    if (position.entry < kOwnRecords) {
        record += static_cast<char>(position.entry); // 0 is ".", 1 is ".." (ECMA-119 6.8.2.2)
        return;
    }
    const NamedEntry& entry = EntryAt(position);
    tree_.FormOf(entry).AppendTo(record);
    if (kind_ != HierarchyKind::Joliet && !source_[entry.node].IsDirectory()) {
        record += kVersion;
    }
    if (record.size() % 2 != 0) {
        record += '\0';
    }
}

std::uint32_t IsoHierarchy::LinkCount(const Position& position, const Contents& contents) const
{
    if (const NamedDirectory* directory = DirectoryOf(position)) {
        return directory->subdirectoryCount + 2;
    }
    const NodeId node = EntryAt(position).node;
    return source_[node].IsLink() ? 1 : contents.Of(node).links;
}

/// The system use fields of a record, whole.
std::string IsoHierarchy::SystemUse(const Position& position, std::uint32_t links) const
{
    const NamedDirectory* directory = DirectoryOf(position);
    const NodeId node = directory ? directory->node : EntryAt(position).node;
    const bool isRoot = position.directory == 0 && position.entry == kSelf;
    const Attributes attributes = attributes_.Of(node);
    TimeStamps times;
    times.modified = ToRecordTime(attributes.modified.seconds);
    std::string fields;
    if (isRoot) {
        fields += BytesOf(SharingIndicator {});
    }
    fields += BytesOf(PosixOf(source_[node].kind, attributes, links));
    fields += BytesOf(times);
    if (isRoot) {
        fields += BytesOf(ExtensionReference {});
    }
    if (position.entry >= kOwnRecords) {
        fields += AlternateName(source_.Name(node));
    }
    if (source_[node].IsLink()) {
        fields += SymbolicLink(source_.LinkText(node));
    }
    return fields;
}

void IsoHierarchy::AppendSystemUse(
    Record& record, const Position& position, const Shape& shape, const Contents& contents) const
{
    const std::string fields = SystemUse(position, LinkCount(position, contents));
    if (shape.continuationLength == 0) {
        record.bytes += fields;
        return;
    }
    const std::uint64_t at = firstSector_ * kSectorSize + AreaAt(position);
    record.bytes += BytesOf(LeadingTo(fields, at));
    record.continuation = InAreas(fields, at);
}

} // namespace velmora::image
