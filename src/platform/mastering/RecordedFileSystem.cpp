// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/RecordedFileSystem.h"

#include "image/ImagePlan.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cstring>

namespace velmora::mastering {

namespace {

using Sector = std::array<std::byte, image::kSectorSize>;

/// The recording that is looked at; a length of 0 isn't known.
class RecordedSession {
public:
    explicit RecordedSession(imapi::IMultisession& disc)
        : disc_(disc)
    {
        const QList<drive::SessionFacts> sessions = disc.Sessions();
        if (sessions.isEmpty()) {
            place_.sectors = disc.TotalSectorsOnMedia();
        } else {
            place_ = sessions.back();
        }
    }

    bool Holds(qint64 sector) const { return place_.sectors == 0 || sector < place_.sectors; }

    Sector Read(qint64 sector) const
    {
        Sector bytes {};
        disc_.ReadSectors(place_.firstSector + sector, bytes);
        return bytes;
    }

    /// A sector by its number on the disc, which is what the structures of UDF hold.
    Sector ReadOnDisc(qint64 sector) const
    {
        Sector bytes {};
        disc_.ReadSectors(sector, bytes);
        return bytes;
    }

    qint64 FirstSector() const { return place_.firstSector; }

private:
    imapi::IMultisession& disc_;
    drive::SessionFacts place_;
};

template <class Number> Number At(const Sector& sector, std::size_t position)
{
    return qFromLittleEndian<Number>(sector.data() + position);
}

/// The volume space of a primary volume descriptor (ECMA-119 8.4).
std::optional<qint64> EndOfIso9660(const RecordedSession& recording)
{
    constexpr qint64 kFirst = 16; // ECMA-119 6.2.1: behind the system area
    constexpr qint64 kMost = 32;  // far more descriptors than any disc has
    constexpr std::byte kPrimary {1};
    constexpr std::byte kTerminator {255};
    for (qint64 at = kFirst; at < kFirst + kMost && recording.Holds(at); ++at) {
        const Sector sector = recording.Read(at);
        if (std::memcmp(&sector[1], "CD001", 5) != 0 || sector[0] == kTerminator) {
            break;
        }
        if (sector[0] == kPrimary) {
            return At<quint32>(sector, 80); // 8.4.8: volume space size, low byte first
        }
    }
    return std::nullopt;
}

/// The number of a descriptor whose tag adds up (ECMA-167 3/7.2), else 0.
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

/// The partition of the volume that the anchor leads to (ECMA-167 3/10.2, 3/10.5).
std::optional<qint64> EndOfUdf(const RecordedSession& recording)
{
    constexpr qint64 kAnchorSector = 256;
    constexpr quint16 kAnchor = 2;
    constexpr quint16 kPartition = 5;
    constexpr quint16 kTerminator = 8;
    constexpr qint64 kMostSectors = 64; // far more descriptors than any volume has
    if (!recording.Holds(kAnchorSector)) {
        return std::nullopt;
    }
    const Sector anchor = recording.Read(kAnchorSector);
    if (TagOf(anchor) != kAnchor) {
        return std::nullopt;
    }
    const auto whole = static_cast<qint64>(At<quint32>(anchor, 16) / image::kSectorSize);
    const qint64 sectors = std::min(whole, kMostSectors);
    const qint64 first = At<quint32>(anchor, 20);
    for (qint64 i = 0; i < sectors; ++i) {
        const Sector descriptor = recording.ReadOnDisc(first + i);
        const quint16 tag = TagOf(descriptor);
        if (tag == kPartition) {
            const qint64 end = qint64 {At<quint32>(descriptor, 188)} + At<quint32>(descriptor, 192);
            // One that ends before the recording begins belongs to another.
            return end > recording.FirstSector() ? std::optional(end - recording.FirstSector())
                                                 : std::nullopt;
        }
        if (tag == kTerminator) {
            break;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<qint64> FindRecordedFileSystem(imapi::IMultisession& disc)
{
    const RecordedSession recording(disc);
    if (const auto end = EndOfIso9660(recording)) {
        return end;
    }
    return EndOfUdf(recording);
}

} // namespace velmora::mastering
