// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/isofile/VolumeExtent.h"

#include "drive/VolumeStart.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace velmora::mastering {

namespace {

constexpr qint64 kFirstStructure = 16; // after the system area (ECMA-119 6.2.1, ECMA-167 2/8.3)
constexpr qint64 kMostStructures = 32; // far more than any disc has

template <class Number> Number At(const Sector& sector, std::size_t position)
{
    return qFromLittleEndian<Number>(sector.data() + position);
}

bool IsNamed(const Sector& sector, const char* identifier)
{
    return std::memcmp(&sector[1], identifier, 5) == 0;
}

/// The volume space of a primary volume descriptor (ECMA-119 8.4.8), whose logical blocks may be
/// smaller than sectors (8.4.12).
qint64 VolumeSpaceOf(const Sector& primary)
{
    const qint64 space = At<quint32>(primary, 80);
    const qint64 blockBytes = At<quint16>(primary, 128);
    const bool isSmaller = blockBytes == 512 || blockBytes == 1024;
    return isSmaller ? (space * blockBytes + drive::kSectorBytes - 1) / drive::kSectorBytes : space;
}

/// The number of a descriptor whose tag is valid (ECMA-167 3/7.2), else 0.
quint16 TagOf(const Sector& sector)
{
    constexpr std::size_t kTagSize = 16;
    constexpr std::size_t kChecksum = 4;
    unsigned sum = 0;
    for (std::size_t i = 0; i < kTagSize; ++i) {
        sum += i == kChecksum ? 0 : std::to_integer<unsigned>(sector[i]);
    }
    const bool addsUp = std::to_integer<unsigned>(sector[kChecksum]) == (sum & 0xFF);
    return addsUp ? At<quint16>(sector, 0) : quint16 {0};
}

/// An extent as descriptors give it (ECMA-167 3/7.1), in whole sectors.
struct DescribedExtent {
    qint64 first = 0;
    qint64 sectors = 0;
};

DescribedExtent ExtentAt(const Sector& sector, std::size_t position)
{
    return {At<quint32>(sector, position + 4), At<quint32>(sector, position) / drive::kSectorBytes};
}

/// Does a logical volume descriptor have a partition whose blocks a table places?
bool HasVirtualPartition(const Sector& descriptor)
{
    constexpr std::string_view kIdentifier = "*UDF Virtual Partition";
    const auto* letters = reinterpret_cast<const char*>(descriptor.data());
    return std::string_view(letters, descriptor.size()).find(kIdentifier) != std::string_view::npos;
}

/// Reads what a volume descriptor sequence says about its partitions (ECMA-167 3/10.5, 3/10.6).
void ReadSequence(const SectorReader& recording, const DescribedExtent& sequence, UdfVolume& volume)
{
    constexpr quint16 kPartition = 5;
    constexpr quint16 kLogicalVolume = 6;
    constexpr quint16 kTerminator = 8;
    constexpr qint64 kMostSectors = 64; // far more descriptors than any volume has
    for (qint64 i = 0; i < std::min(sequence.sectors, kMostSectors); ++i) {
        const Sector descriptor = recording.ReadOnDisc(sequence.first + i);
        const quint16 tag = TagOf(descriptor);
        if (tag == kPartition && volume.partitionEnd == 0) {
            volume.partitionEnd
                = qint64 {At<quint32>(descriptor, 188)} + At<quint32>(descriptor, 192);
        }
        if (tag == kLogicalVolume) {
            volume.isVirtual = HasVirtualPartition(descriptor);
        }
        if (tag == kTerminator) {
            break;
        }
    }
}

} // namespace

std::optional<qint64> EndOfIso9660(const SectorReader& recording)
{
    constexpr std::byte kPrimary {1};
    constexpr std::byte kTerminator {255};
    constexpr qint64 kEnd = kFirstStructure + kMostStructures;
    for (qint64 at = kFirstStructure; at < kEnd && recording.Holds(at); ++at) {
        const Sector sector = recording.Read(at);
        if (!IsNamed(sector, "CD001") || sector[0] == kTerminator) {
            break;
        }
        if (sector[0] == kPrimary) {
            return VolumeSpaceOf(sector);
        }
    }
    return std::nullopt;
}

bool IsUdfAnchor(const Sector& sector)
{
    constexpr quint16 kAnchor = 2;
    return TagOf(sector) == kAnchor;
}

std::optional<UdfVolume> FindUdfVolume(const SectorReader& recording)
{
    if (!recording.Holds(drive::kAnchorSector)) {
        return std::nullopt;
    }
    const Sector anchor = recording.Read(drive::kAnchorSector);
    if (!IsUdfAnchor(anchor)) {
        return std::nullopt;
    }
    const DescribedExtent main = ExtentAt(anchor, 16);
    const DescribedExtent reserve = ExtentAt(anchor, 24);
    UdfVolume volume {
        .sequencesEnd = std::max(main.first + main.sectors, reserve.first + reserve.sectors)};
    ReadSequence(recording, main, volume);
    return volume;
}

bool NamesUdf(const SectorReader& recording)
{
    constexpr qint64 kEnd = kFirstStructure + kMostStructures;
    for (qint64 at = kFirstStructure; at < kEnd && recording.Holds(at); ++at) {
        const Sector sector = recording.Read(at);
        if (IsNamed(sector, "NSR02") || IsNamed(sector, "NSR03")) {
            return true;
        }
    }
    return false;
}

} // namespace velmora::mastering
