// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/udf/UdfHierarchy.h"

#include <algorithm>
#include <cassert>

namespace velmora::image {

namespace {

// ICB flags, bits 0-2
constexpr std::uint16_t kShortDescriptors = 0;
constexpr std::uint16_t kLongDescriptors = 1;
constexpr std::uint16_t kEmbedded = 3;

std::uint16_t FlagsOf(const UdfEntryFacts& facts)
{
    if (!facts.embedded.empty()) {
        return kEmbedded;
    }
    return facts.dataInOtherPartition ? kLongDescriptors : kShortDescriptors;
}

template <class Allocation>
void AppendAllocations(std::string& entry, const UdfEntryFacts& facts, Allocation allocation)
{
    std::uint64_t size = facts.size;
    std::uint32_t block = facts.firstBlock;
    while (size > 0) {
        const std::uint64_t length = std::min(size, facts.longestExtent);
        allocation.length = static_cast<std::uint32_t>(length);
        allocation.block = block;
        entry += BytesOf(allocation);
        block += static_cast<std::uint32_t>(length / kSectorSize);
        size -= length;
    }
}

/// Fills what both kinds of entry have.
template <class Entry> std::string Make(const UdfEntryFacts& facts, std::string_view allocations)
{
    Entry entry;
    entry.head.icb.fileType = static_cast<std::uint8_t>(facts.type);
    entry.head.icb.flags = static_cast<std::uint16_t>(FlagsOf(facts) | facts.modeFlags);
    entry.head.userId = facts.userId;
    entry.head.groupId = facts.groupId;
    entry.head.permissions = facts.permissions;
    entry.head.linkCount = facts.links;
    entry.head.informationLength = facts.size;
    entry.blocksRecorded = facts.embedded.empty() ? SectorsFor(facts.size) : 0;
    const UdfTime time = ToUdfTime(facts.modified);
    entry.accessed = time;
    entry.modified = time;
    entry.attributesChanged = time;
    if constexpr (std::is_same_v<Entry, ExtendedFileEntry>) {
        entry.objectSize = facts.size;
        entry.created = time;
    }
    entry.tail.implementation = ImplementationId();
    entry.tail.uniqueId = facts.uniqueId;
    entry.tail.allocationsLength = static_cast<std::uint32_t>(allocations.size());
    std::string bytes;
    bytes.reserve(sizeof entry + allocations.size());
    bytes += BytesOf(entry);
    bytes += allocations;
    return bytes;
}

} // namespace

std::uint64_t MaxUdfFileSize(std::uint16_t revision)
{
    const bool isExtended = revision >= 0x0200;
    const std::uint64_t room
        = kSectorSize - (isExtended ? sizeof(ExtendedFileEntry) : sizeof(FileEntry));
    const std::uint64_t each
        = revision >= 0x0250 ? sizeof(LongAllocation) : sizeof(ShortAllocation);
    return room / each * kMaxUdfExtent;
}

std::string MakeFileEntry(const UdfEntryFacts& facts, const UdfPlaces& places, std::uint32_t block)
{
    std::string allocations(facts.embedded);
    if (!facts.embedded.empty()) {
        assert(facts.size == facts.embedded.size());
    } else if (facts.dataInOtherPartition) {
        AppendAllocations(allocations, facts, LongAllocation {});
    } else {
        AppendAllocations(allocations, facts, ShortAllocation {});
    }
    const bool isExtended = places.revision >= 0x0200;
    std::string entry = isExtended ? Make<ExtendedFileEntry>(facts, allocations)
                                   : Make<FileEntry>(facts, allocations);
    Seal(entry, isExtended ? ExtendedFileEntry::kTag : FileEntry::kTag, places.TagVersion(), block);
    return entry;
}

} // namespace velmora::image
