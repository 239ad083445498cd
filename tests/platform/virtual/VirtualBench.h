// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drive/Drive.h"
#include "drive/PublishedCodes.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeClock.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/SampleSectors.h"
#include "tests/support/TemporaryFolder.h"
#include "virtual/Recorders.h"
#include "virtual/VirtualDrive.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace velmora::virtualdrive::test {

inline constexpr qint64 kSector = 2048;

/// The number under which the program sees a published code.
inline qint32 Seen(qint32 code) { return drive::MapHresult(code); }

/// The byte of a test's data at a position.
inline std::byte PatternAt(qint64 position, quint32 seed)
{
    const auto sector = static_cast<quint64>(position / kSector);
    return static_cast<std::byte>((sector * 31 + static_cast<quint64>(position % 251) + seed) | 1U);
}

inline std::vector<std::byte> Pattern(qint64 sectors, quint32 seed)
{
    std::vector<std::byte> bytes(static_cast<std::size_t>(sectors * kSector));
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        bytes[at] = PatternAt(static_cast<qint64>(at), seed);
    }
    return bytes;
}

/// Gives the bytes of a pattern.
inline drive::WriteSource PatternSource(quint32 seed)
{
    return [seed, at = qint64 {0}](std::span<std::byte> out) mutable {
        for (std::byte& byte : out) {
            byte = PatternAt(at++, seed);
        }
    };
}

/// Gives zeros, quickly.
inline void ZeroSource(std::span<std::byte> out) { std::ranges::fill(out, std::byte {0}); }

/// One recorder named "A" and a drive on it; time passes only during waits.
class VirtualBench : public testing::Test {
protected:
    VirtualBench() { recorders.Create(QStringLiteral("A")); }

    void Insert(QStringView type, DiscPreset preset = DiscPreset::Blank)
    {
        recorders.Insert(
            QStringLiteral("A"), {.medium = FindMedium(type), .preset = preset}, clock);
    }
    void Change(const std::function<void(Description&)>& change)
    {
        recorders.Folder(QStringLiteral("A")).Change(change);
    }
    Description Now() const { return recorders.Show(QStringLiteral("A")); }

    drive::WriteOrder Order(qint64 sectors, quint32 seed = 7) const
    {
        return {.source = PatternSource(seed), .sectors = sectors};
    }
    /// @return the number of the error, 0 for success
    qint32 Write(qint64 sectors, bool closeDisc = false, quint32 seed = 7)
    {
        drive::WriteOrder order = Order(sectors, seed);
        order.closeDisc = closeDisc;
        return velmora::test::ErrorNumberOf([&] { drive.Write(order, {}); });
    }
    qint32 ExamineError()
    {
        return velmora::test::ErrorNumberOf([&] { drive.Examine(); });
    }
    std::vector<std::byte> ReadBack(qint64 first, qint64 sectors)
    {
        std::vector<std::byte> bytes(static_cast<std::size_t>(sectors * kSector));
        drive.Read(first, bytes);
        return bytes;
    }
    qint32 ReadError(qint64 first, qint64 sectors = 1)
    {
        return velmora::test::ErrorNumberOf([&] { ReadBack(first, sectors); });
    }

    velmora::test::TemporaryFolder folder;
    velmora::test::FakePump pump;
    velmora::test::FakeClock clock {pump, QDateTime::fromMSecsSinceEpoch(1'700'000'000'000)};
    Recorders recorders {folder.Path().string() + "/recorders", velmora::test::SampleSectors};
    VirtualDrive drive {
        RecorderFolder(QStringLiteral("A"), folder.Path().string() + "/recorders/A"), clock, pump};
};

} // namespace velmora::virtualdrive::test
