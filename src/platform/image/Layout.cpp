// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/PlanDetails.h"

#include <algorithm>

// Which sector everything gets. From the start: system area, volume descriptors and recognition
// sequence; for UDF the descriptor sequences, integrity and anchor at their fixed sectors and the
// file structure; path tables and directories of ISO 9660 and Joliet; the files' data, shared by
// all; padding; for UDF the closing anchor.

namespace velmora::image {

namespace {

constexpr std::uint32_t kPadding
    = 150; // sectors before the end that a drive may fail to read (run-out)
constexpr std::uint32_t kTrackUnit
    = 32; // sectors: the error correction block of Blu-ray, two of DVD
constexpr std::uint64_t kMaxSectors = 0xFFFFFFFF;

std::uint64_t RoundUp(std::uint64_t value, std::uint64_t unit)
{
    return (value + unit - 1) / unit * unit;
}

} // namespace

Result<> PlanDetails::Lay()
{
    std::uint64_t next = kSystemAreaSectors;
    next += (options_.fileSystems.iso9660 ? 2 : 0) + (options_.fileSystems.joliet ? 1 : 0);
    if (options_.fileSystems.udf) {
        PlaceStructure(next);
    }
    IsoVolumeFacts iso;
    IsoVolumeFacts joliet;
    if (options_.fileSystems.iso9660) {
        iso = PlaceHierarchy(iso_, next);
    }
    if (options_.fileSystems.joliet) {
        joliet = PlaceHierarchy(joliet_, next);
    }
    const std::uint64_t dataBegin = next;
    const std::uint64_t dataEnd = contents_.Place(dataBegin);
    const std::uint64_t tail = kPadding + kSequenceSectors + 2 + kTrackUnit;
    if (dataEnd + tail > kMaxSectors) {
        return Error {ErrorKind::ImageTooLarge};
    }
    dataBegin_ = static_cast<std::uint32_t>(dataBegin);
    dataEnd_ = static_cast<std::uint32_t>(dataEnd);
    PlaceTail(dataEnd);
    if (options_.maxSectors != 0 && sectors_ > options_.maxSectors) {
        return Error {ErrorKind::ImageTooLarge};
    }
    AddDescriptors(std::move(iso), std::move(joliet));
    if (sumsList_ && options_.sums) {
        sums_ = std::make_unique<SumsFile>(*source_, *sumsList_, contents_, options_.sums);
    }
    return {};
}

void PlanDetails::PlaceStructure(std::uint64_t& next)
{
    places_.revision = static_cast<std::uint16_t>(RevisionOf(options_));
    places_.partitionStart = kAnchorSector + 1;
    places_.structureStart = places_.partitionStart;
    std::uint64_t blocks = udf_.Blocks();
    if (places_.HasMetadataPartition()) {
        // The metadata file's entry lies before its blocks; both begin at an allocation unit.
        places_.partitionStart
            = static_cast<std::uint32_t>(RoundUp(places_.partitionStart, kMetadataUnit));
        places_.structureStart = places_.partitionStart + kMetadataUnit;
        blocks = RoundUp(blocks, kMetadataUnit);
    }
    places_.structureBlocks = static_cast<std::uint32_t>(blocks);
    next = places_.structureStart + blocks;
}

IsoVolumeFacts PlanDetails::PlaceHierarchy(IsoHierarchy& hierarchy, std::uint64_t& next)
{
    IsoVolumeFacts facts;
    facts.volumeName = options_.volumeName;
    facts.created = options_.created;
    facts.pathTableSize = hierarchy.PathTableSize();
    facts.pathTableL = static_cast<std::uint32_t>(next);
    facts.pathTableM = static_cast<std::uint32_t>(next + SectorsFor(facts.pathTableSize));
    next += 2 * SectorsFor(facts.pathTableSize);
    next = hierarchy.Place(next);
    facts.root = hierarchy.Root();
    Fix(facts.pathTableL, hierarchy.PathTable<Little>());
    Fix(facts.pathTableM, hierarchy.PathTable<Big>());
    return facts;
}

void PlanDetails::PlaceTail(std::uint64_t dataEnd)
{
    std::uint64_t end = dataEnd;
    const bool hasMirror = options_.fileSystems.udf && places_.HasMetadataPartition();
    if (hasMirror) {
        places_.mirrorSector = static_cast<std::uint32_t>(end++); // far from the main entry
    }
    places_.partitionLength = static_cast<std::uint32_t>(end) - places_.partitionStart;
    end += kPadding;
    if (options_.fileSystems.udf) {
        end += (hasMirror ? kSequenceSectors : 0) + 1;
    }
    sectors_ = static_cast<std::uint32_t>(RoundUp(end, kTrackUnit));
    places_.lastSector = sectors_ - 1;
    // From UDF 2.50 on the two sequences lie far apart (UDF 2.2.3.2).
    places_.reserveSequence
        = hasMirror ? places_.lastSector - kSequenceSectors : kEarlyReserveSector;
}

void PlanDetails::Fix(std::uint64_t sector, std::string bytes)
{
    fixed_.push_back({static_cast<std::uint32_t>(sector), std::move(bytes)});
}

void PlanDetails::AddDescriptors(IsoVolumeFacts iso, IsoVolumeFacts joliet)
{
    std::string descriptors;
    iso.sectors = sectors_;
    joliet.sectors = sectors_;
    if (options_.fileSystems.iso9660) {
        descriptors += BytesOf(PrimaryDescriptor(iso));
    }
    if (options_.fileSystems.joliet) {
        descriptors += BytesOf(JolietDescriptor(joliet));
    }
    if (options_.fileSystems.iso9660) {
        descriptors += BytesOf(SetTerminator {});
    }
    if (options_.fileSystems.udf) {
        descriptors += RecognitionSequence(places_.revision);
    }
    descriptors_.push_back({kSystemAreaSectors, std::move(descriptors)});
    if (!options_.fileSystems.udf) {
        return;
    }
    udf_.Place(places_);
    for (FixedSectors& structure :
        VolumeStructures({options_.volumeName, options_.created, places_}, udf_)) {
        const bool isAnchor
            = structure.sector == kAnchorSector || structure.sector == places_.lastSector;
        (isAnchor ? descriptors_ : fixed_).push_back(std::move(structure));
    }
}

} // namespace velmora::image
