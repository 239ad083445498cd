// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mastering/isofile/PartitionTable.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace velmora::mastering {

namespace {

constexpr qint64 kDiskSectorBytes = 512;

template <class Number> Number FieldAt(const Sector& sector, std::size_t position)
{
    return qFromLittleEndian<Number>(sector.data() + position);
}

/// One of the four partitions of a master boot record.
struct MasterEntry {
    std::byte status; // 0x80 for the one that boots, else 0
    std::byte type;   // 0 = not used
    qint64 first;     // in sectors of 512 bytes
    qint64 count;

    bool IsValid() const { return status == std::byte {0} || status == std::byte {0x80}; }
    bool IsUsed() const { return type != std::byte {0} && count != 0; }
    /// It only protects the GPT from older tools; its size isn't meaningful.
    bool IsProtective() const { return type == std::byte {0xEE}; }
};

MasterEntry EntryAt(const Sector& first, std::size_t position)
{
    return {.status = first[position],
        .type = first[position + 4],
        .first = FieldAt<quint32>(first, position + 8),
        .count = FieldAt<quint32>(first, position + 12)};
}

std::optional<qint64> EndOfMasterBootRecord(const Sector& first)
{
    constexpr std::size_t kFirstEntry = 446;
    constexpr std::size_t kEntryBytes = 16;
    constexpr std::size_t kSignature = 510;
    if (FieldAt<quint16>(first, kSignature) != 0xAA55) {
        return std::nullopt;
    }
    std::optional<qint64> end;
    for (std::size_t at = kFirstEntry; at < kSignature; at += kEntryBytes) {
        const MasterEntry entry = EntryAt(first, at);
        if (!entry.IsValid()) { // the signature also ends other sectors, as the start of a plain
                                // volume
            return std::nullopt;
        }
        if (entry.IsUsed()) {
            const qint64 entryEnd = entry.IsProtective() ? 0 : entry.first + entry.count;
            end = std::max(end.value_or(0), entryEnd * kDiskSectorBytes);
        }
    }
    return end;
}

/// The header of the table, which says where its copy lies (UEFI 2.10, 5.3.2).
std::optional<qint64> EndOfGuidTable(const Sector& first)
{
    constexpr std::size_t kHeader = kDiskSectorBytes;
    constexpr quint64 kMost = quint64 {1} << 40U; // beyond any image
    if (std::memcmp(&first[kHeader], "EFI PART", 8) != 0
        || FieldAt<quint64>(first, kHeader + 24) != 1) {
        return std::nullopt;
    }
    const auto copy = FieldAt<quint64>(first, kHeader + 32);
    const auto lastUsable = FieldAt<quint64>(first, kHeader + 48);
    return static_cast<qint64>(std::min(std::max(copy, lastUsable), kMost) + 1) * kDiskSectorBytes;
}

} // namespace

std::optional<qint64> EndOfPartitions(const Sector& first)
{
    const std::optional<qint64> master = EndOfMasterBootRecord(first);
    const std::optional<qint64> guid = EndOfGuidTable(first);
    return std::max(master, guid); // nothing is less than any
}

} // namespace velmora::mastering
