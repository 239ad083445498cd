// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/iso/ContinuationAreas.h"
#include "image/iso/IsoHierarchy.h"

#include <algorithm>

// The contents of a directory record, and its length.

namespace velmora::image {

namespace {

constexpr std::uint32_t kMaxRecord
    = 254; // bytes: the length fits one byte and is even (ECMA-119 9.1.1)
constexpr std::string_view kVersion = ";1";
constexpr auto kRootFields
    = static_cast<std::uint32_t>(sizeof(SharingIndicator) + sizeof(ExtensionReference));

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

/// The number of consecutive extents that this many bytes take.
std::uint32_t ExtentsFor(std::uint64_t size)
{
    return size <= kMaxSingleExtent
        ? 1
        : static_cast<std::uint32_t>((size + kMaxInnerExtent - 1) / kMaxInnerExtent);
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

/// The directory that a directory's record leads to.
const NamedDirectory& IsoHierarchy::DirectoryOf(const Position& position) const
{
    const NamedDirectory& directory = tree_.directories[position.directory];
    if (position.entry == kSelf) {
        return directory;
    }
    return tree_.directories[position.entry == kParent
            ? directory.parent
            : directory.firstSubdirectory + position.subdirectory];
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
    Shape shape;
    if (position.entry >= kOwnRecords) {
        const NamedEntry& entry = EntryAt(position);
        shape.entry = &entry;
        shape.name = tree_.FormOf(entry);
        shape.isDirectory = source_[entry.node].IsDirectory();
        shape.extentCount = ExtentsFor(SizeOf(entry.node));
        const bool hasVersion = kind_ != HierarchyKind::Joliet && !shape.isDirectory;
        shape.identifierLength
            = static_cast<std::uint32_t>(shape.name.Size() + (hasVersion ? kVersion.size() : 0));
    }
    shape.recordLength
        = Even(static_cast<std::uint32_t>(sizeof(DirectoryRecordHead)) + shape.identifierLength);
    if (kind_ == HierarchyKind::RockRidge) {
        MeasureFields(shape, position);
    }
    return shape;
}

/// Finds room for the system use fields: in the record, if they fit.
void IsoHierarchy::MeasureFields(Shape& shape, const Position& position) const
{
    auto length = static_cast<std::uint32_t>(sizeof(StatusFields));
    if (shape.entry == nullptr) {
        const bool isRoot = position.directory == 0 && position.entry == kSelf;
        length += isRoot ? kRootFields : 0;
    } else if (source_[shape.entry->node].IsLink()) {
        std::string fields;
        AppendFields(fields, position, shape, {});
        length = LengthInAreas(fields);
    } else {
        length += AlternateNameLength(source_.Name(shape.entry->node).size());
    }
    if (shape.recordLength + length <= kMaxRecord && !IsConfusing(shape, position)) {
        shape.recordLength = Even(shape.recordLength + length);
        return;
    }
    shape.recordLength
        = Even(shape.recordLength + static_cast<std::uint32_t>(sizeof(Continuation)));
    shape.continuationLength = length;
}

/// libcdio shows plain readers a mixture: the Rock Ridge name of a record, in lower case. It then
/// fails to find folders whose identifier is another name, and confuses names that differ only in
/// case. It never looks into continuation areas, so the fields of such entries do no harm there.
bool IsoHierarchy::IsConfusing(const Shape& shape, const Position& position) const
{
    const bool matters = shape.isDirectory || tree_.directories[position.directory].hasClashes;
    return shape.entry != nullptr && matters
        && !IsPlainName(source_.Name(shape.entry->node), shape.name.Text());
}

void IsoHierarchy::MakeRecord(
    const Position& position, const Shape& shape, const Contents& contents, Record& record) const
{
    const NamedDirectory* directory = shape.isDirectory ? &DirectoryOf(position) : nullptr;
    const NodeId node = directory ? directory->node : shape.entry->node;
    const Attributes attributes = attributes_.Of(node);
    std::uint32_t links = 1;
    DirectoryRecordHead head;
    head.recordLength = static_cast<std::uint8_t>(shape.recordLength);
    head.time = ToRecordTime(attributes.modified.seconds);
    head.identifierLength = static_cast<std::uint8_t>(shape.identifierLength);
    if (directory) {
        head.extentStart = directory->sector;
        head.dataLength = directory->bytes;
        head.flags = kFlagDirectory;
        links = directory->subdirectoryCount + 2;
    } else if (!IsKeptLink(node)) {
        PointAtFile(head, position, shape, contents);
        links = contents.Of(node).links;
    }
    record.continuation.clear();
    record.bytes = BytesOf(head);
    AppendIdentifier(record.bytes, position, shape);
    if (kind_ == HierarchyKind::RockRidge) {
        const PosixAttributes posix = PosixOf(source_[node].kind, attributes, links);
        AppendSystemUse(record, position, shape, {posix, {.modified = head.time}});
    }
    record.bytes.resize(shape.recordLength);
}

void IsoHierarchy::PointAtFile(DirectoryRecordHead& head,
    const Position& position,
    const Shape& shape,
    const Contents& contents) const
{
    const NodeId node = shape.entry->node;
    const bool isLast = position.extent + 1 == shape.extentCount;
    const std::uint64_t before = position.extent * kMaxInnerExtent;
    const std::uint64_t length = isLast ? SizeOf(node) - before : kMaxInnerExtent;
    head.extentStart = contents.Of(node).sector + static_cast<std::uint32_t>(before / kSectorSize);
    head.dataLength = static_cast<std::uint32_t>(length);
    head.flags = isLast ? 0 : kFlagMultiExtent;
}

void IsoHierarchy::AppendIdentifier(
    std::string& record, const Position& position, const Shape& shape) const
{
    if (shape.entry == nullptr) {
        record += static_cast<char>(position.entry); // 0 is ".", 1 is ".." (ECMA-119 6.8.2.2)
        return;
    }
    shape.name.AppendTo(record);
    if (kind_ != HierarchyKind::Joliet && !shape.isDirectory) {
        record += kVersion;
    }
    if (record.size() % 2 != 0) {
        record += '\0';
    }
}

/// The system use fields of a record, whole. What they say doesn't change their length.
void IsoHierarchy::AppendFields(std::string& fields,
    const Position& position,
    const Shape& shape,
    const StatusFields& status) const
{
    const bool isRoot = position.directory == 0 && position.entry == kSelf;
    if (isRoot) {
        fields += BytesOf(SharingIndicator {});
    }
    fields += BytesOf(status);
    if (isRoot) {
        fields += BytesOf(ExtensionReference {});
    }
    if (shape.entry == nullptr) {
        return;
    }
    const NodeId node = shape.entry->node;
    AppendAlternateName(fields, source_.Name(node));
    if (source_[node].IsLink()) {
        fields += SymbolicLink(source_.LinkText(node));
    }
}

void IsoHierarchy::AppendSystemUse(
    Record& record, const Position& position, const Shape& shape, const StatusFields& status) const
{
    if (shape.continuationLength == 0) {
        AppendFields(record.bytes, position, shape, status);
        return;
    }
    std::string fields;
    AppendFields(fields, position, shape, status);
    const std::uint64_t at = firstSector_ * kSectorSize + AreaAt(position);
    record.bytes += BytesOf(LeadingTo(fields, at));
    record.continuation = InAreas(fields, at);
}

} // namespace velmora::image
