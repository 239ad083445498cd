// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/udf/UdfVolume.h"

#include "image/base/Crc.h"
#include "image/names/Cut.h"
#include "image/names/UdfNames.h"
#include "image/udf/UdfVolumeFormat.h"

#include <algorithm>
#include <cstdio>

namespace velmora::image {

namespace {

/// Eight hexadecimal digits of the time and eight that distinguish volumes of the same second (UDF
/// 2.2.2.5).
std::string VolumeSetName(const UdfVolumeFacts& facts)
{
    std::array<char, 17> digits {};
    const unsigned other = std::uint32_t {Crc16(facts.volumeName)} << 16U
        | (facts.created.microseconds ^ facts.places.lastSector) % 0x10000U;
    std::snprintf(digits.data(),
        digits.size(),
        "%08X%08X",
        static_cast<unsigned>(facts.created.seconds),
        other);
    return digits.data() + facts.volumeName;
}

/// A row of sealed descriptors, a sector each.
class Sequence {
public:
    Sequence(std::uint32_t sector, std::uint16_t tagVersion)
        : sector_(sector)
        , tagVersion_(tagVersion)
    {
    }

    void Add(TagId identifier, std::string descriptor)
    {
        Seal(descriptor,
            identifier,
            tagVersion_,
            sector_ + static_cast<std::uint32_t>(bytes_.size() / kSectorSize));
        bytes_ += descriptor;
        bytes_.resize((bytes_.size() + kSectorSize - 1) / kSectorSize * kSectorSize);
    }
    template <class Record> void Add(TagId identifier, const Record& record)
    {
        Add(identifier, std::string(BytesOf(record)));
    }

    FixedSectors Take(std::uint32_t at) { return {at, std::move(bytes_)}; }

private:
    std::uint32_t sector_; // or the block, for the file structure
    std::uint16_t tagVersion_;
    std::string bytes_;
};

/// Writes the descriptors of one volume.
class VolumeWriter {
public:
    VolumeWriter(const UdfVolumeFacts& facts, const UdfHierarchy& hierarchy)
        : facts_(facts)
        , places_(facts.places)
        , hierarchy_(hierarchy)
    {
    }

    std::vector<FixedSectors> Write() const
    {
        std::vector<FixedSectors> all;
        for (const std::uint32_t sector : {kMainSequenceSector, places_.reserveSequence}) {
            all.push_back(DescriptorSequence(sector));
        }
        all.push_back(Integrity());
        for (const std::uint32_t sector : {kAnchorSector, places_.lastSector}) {
            all.push_back(Anchor(sector));
        }
        all.push_back(FileSet());
        if (places_.HasMetadataPartition()) {
            all.push_back(MetadataFile(UdfFileType::MetadataMain, places_.partitionStart));
            all.push_back(MetadataFile(UdfFileType::MetadataMirror, places_.mirrorSector));
        }
        return all;
    }

private:
    FixedSectors Anchor(std::uint32_t sector) const
    {
        AnchorDescriptor anchor;
        anchor.mainSequence = {kSequenceSectors * kSectorSize, kMainSequenceSector};
        anchor.reserveSequence = {kSequenceSectors * kSectorSize, places_.reserveSequence};
        Sequence sequence(sector, places_.TagVersion());
        sequence.Add(TagId::AnchorVolume, anchor);
        return sequence.Take(sector);
    }

    FixedSectors DescriptorSequence(std::uint32_t sector) const
    {
        Sequence sequence(sector, places_.TagVersion());
        sequence.Add(TagId::PrimaryVolume, Primary());
        sequence.Add(TagId::ImplementationUseVolume, Information());
        sequence.Add(TagId::Partition, Partition());
        sequence.Add(TagId::LogicalVolume, LogicalVolume());
        UnallocatedSpaceDescriptor unallocated;
        unallocated.sequenceNumber = 4;
        sequence.Add(TagId::UnallocatedSpace, unallocated);
        sequence.Add(TagId::Terminating, TerminatingDescriptor {});
        return sequence.Take(sector);
    }

    PrimaryVolumeDescriptor Primary() const
    {
        PrimaryVolumeDescriptor descriptor;
        descriptor.volumeIdentifier = DString<32>(facts_.volumeName);
        descriptor.volumeSetIdentifier = DString<128>(VolumeSetName(facts_));
        descriptor.recorded = ToUdfTime(facts_.created);
        descriptor.implementation = ImplementationId();
        return descriptor;
    }

    VolumeInformation Information() const
    {
        VolumeInformation information;
        information.sequenceNumber = 1;
        information.identifier = UdfId("*UDF LV Info", places_.revision);
        information.logicalVolumeIdentifier = DString<128>(facts_.volumeName);
        information.implementation = ImplementationId();
        return information;
    }

    PartitionDescriptor Partition() const
    {
        PartitionDescriptor partition;
        partition.sequenceNumber = 2;
        partition.contents = ContentsId(places_.revision);
        partition.start = places_.partitionStart;
        partition.length = places_.partitionLength;
        partition.implementation = ImplementationId();
        return partition;
    }

    std::string LogicalVolume() const
    {
        std::string maps {BytesOf(PlainPartitionMap {})};
        if (places_.HasMetadataPartition()) {
            MetadataPartitionMap map;
            map.identifier = UdfId("*UDF Metadata Partition", places_.revision);
            map.mirrorFile = places_.mirrorSector - places_.partitionStart;
            maps += BytesOf(map);
        }
        LogicalVolumeHead head;
        head.sequenceNumber = 3;
        head.identifier = DString<128>(facts_.volumeName);
        head.domain = DomainId(places_.revision);
        head.fileSet.length = 2 * kSectorSize; // the file set descriptor and its terminator
        head.fileSet.partition = places_.StructureMap();
        head.mapTableLength = static_cast<std::uint32_t>(maps.size());
        head.mapCount = PartitionCount();
        head.implementation = ImplementationId();
        head.integritySequence = {2 * kSectorSize, kIntegritySector};
        return std::string(BytesOf(head)) + maps;
    }

    std::uint32_t PartitionCount() const { return places_.HasMetadataPartition() ? 2 : 1; }

    FixedSectors Integrity() const
    {
        IntegrityHead head;
        head.recorded = ToUdfTime(facts_.created);
        head.nextUniqueId = hierarchy_.NextUniqueId();
        head.partitionCount = PartitionCount();
        std::string descriptor {BytesOf(head)};
        for (std::uint32_t i = 0; i < PartitionCount(); ++i) {
            descriptor += BytesOf(Little32(0)); // free blocks
        }
        descriptor += BytesOf(Little32(places_.partitionLength));
        if (places_.HasMetadataPartition()) {
            descriptor += BytesOf(Little32(places_.structureBlocks));
        }
        IntegrityUse use;
        use.implementation = ImplementationId();
        use.files = hierarchy_.FileCount();
        use.directories = hierarchy_.DirectoryCount();
        use.minReadRevision = places_.revision;
        use.minWriteRevision = places_.revision;
        use.maxWriteRevision = places_.revision;
        descriptor += BytesOf(use);
        Sequence sequence(kIntegritySector, places_.TagVersion());
        sequence.Add(TagId::LogicalVolumeIntegrity, std::move(descriptor));
        sequence.Add(TagId::Terminating, TerminatingDescriptor {});
        return sequence.Take(kIntegritySector);
    }

    FixedSectors FileSet() const
    {
        FileSetDescriptor set;
        set.recorded = ToUdfTime(facts_.created);
        set.logicalVolumeIdentifier = DString<128>(facts_.volumeName);
        set.identifier = DString<32>(facts_.volumeName);
        set.root = hierarchy_.RootIcb();
        set.domain = DomainId(places_.revision);
        Sequence sequence(0, places_.TagVersion());
        sequence.Add(TagId::FileSet, set);
        sequence.Add(TagId::Terminating, TerminatingDescriptor {});
        return sequence.Take(places_.structureStart);
    }

    FixedSectors MetadataFile(UdfFileType type, std::uint32_t sector) const
    {
        UdfEntryFacts facts;
        facts.type = type;
        facts.size = std::uint64_t {places_.structureBlocks} * kSectorSize;
        facts.modified = facts_.created;
        facts.firstBlock = places_.structureStart - places_.partitionStart;
        facts.longestExtent = kMaxMetadataExtent;
        return {sector, MakeFileEntry(facts, places_, sector - places_.partitionStart)};
    }

    const UdfVolumeFacts& facts_;
    const UdfPlaces& places_;
    const UdfHierarchy& hierarchy_;
};

} // namespace

template <std::size_t N> std::array<char, N> DString(std::string_view utf8)
{
    const std::string compressed = CompressedUnicode(utf8);
    if (compressed.size() <= 1) {
        return {};
    }
    std::string_view characters = std::string_view(compressed).substr(1);
    const bool isWide = compressed.front() == 16;
    constexpr std::size_t kRoom = N - 2; // the compression ID and the length take a byte each
    characters = isWide ? FirstUnits(characters, kRoom / 2) : characters.substr(0, kRoom);
    std::array<char, N> field {};
    field[0] = compressed.front();
    std::copy(characters.begin(), characters.end(), field.begin() + 1);
    field[N - 1] = static_cast<char>(characters.size() + 1);
    return field;
}

template std::array<char, 32> DString<32>(std::string_view);
template std::array<char, 128> DString<128>(std::string_view);

std::string RecognitionSequence(std::uint16_t revision)
{
    std::string sequence;
    for (const std::string_view identifier :
        {"BEA01", revision >= 0x0200 ? "NSR03" : "NSR02", "TEA01"}) {
        RecognitionDescriptor descriptor;
        descriptor.identifier = Filled<5>(identifier);
        sequence += BytesOf(descriptor);
    }
    return sequence;
}

std::vector<FixedSectors> VolumeStructures(
    const UdfVolumeFacts& facts, const UdfHierarchy& hierarchy)
{
    return VolumeWriter(facts, hierarchy).Write();
}

} // namespace velmora::image
