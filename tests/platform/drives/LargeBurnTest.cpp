// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/drives/DriveBench.h"

#include "virtual/Recorders.h"
#include "virtual/VirtualDrive.h"

#include <algorithm>

namespace velmora::test {

namespace {

constexpr qint64 kSectorsOf700Mb = 341797; // 700 MB
constexpr qint64 kStep = 4096;

struct Kind {
    const char* name;
    std::uint16_t profile;
    QStringView medium;
    std::int64_t capacity;
};

constexpr Kind kKinds[] {
    {"CdR", 0x09, u"cd-r-90", 404850},
    {"DvdPlusR", 0x1B, u"dvd+r", 2295104},
    {"BdR", 0x41, u"bd-r", 12219392},
};

void PrintTo(const Kind& kind, std::ostream* out) { *out << kind.name; }

} // namespace

// A program of its own with the label "slow": 4 GB go through the drives and onto the disk.
class LargeBurnTest : public DriveBench, public testing::WithParamInterface<Kind> {
protected:
    LargeBurnTest()
    {
        recorders.Create(u"A"_s);
        recorders.Insert(u"A"_s, {.medium = virtualdrive::FindMedium(GetParam().medium)}, clock);
        emulated.Insert(mmc::NewDisc(GetParam().profile, GetParam().capacity));
    }

    /// Both discs hold that piece of the recording, and so the same bytes.
    void ExpectPiece(qint64 first, qint64 count)
    {
        std::vector<std::uint8_t> wanted(static_cast<std::size_t>(count) * 2048);
        FillSectors(std::as_writable_bytes(std::span(wanted)), first, 1);
        std::vector<std::uint8_t> read(wanted.size());
        virtualDrive.Read(first, std::as_writable_bytes(std::span(read)));
        ASSERT_EQ(emulated.Sectors(first, count), wanted) << first;
        ASSERT_EQ(read, wanted) << first;
    }

    virtualdrive::Recorders recorders {folder.MakeFolder("recorders").native()};
    virtualdrive::VirtualDrive virtualDrive {
        virtualdrive::RecorderFolder(u"A"_s, (folder / "recorders/A").native()), clock, pump};
};

INSTANTIATE_TEST_SUITE_P(, LargeBurnTest, testing::ValuesIn(kKinds), [](const auto& kind) {
    return std::string(kind.param.name);
});

TEST_P(LargeBurnTest, SevenHundredMegabytesAreTheSameInBothDrivesAndTheWindowStaysAlive)
{
    drive::WriteOrder order = OrderOf(kSectorsOf700Mb);
    order.closeDisc = true;
    pump.Begin();
    Write(order);
    EXPECT_GT(pump.pumps, 10);
    EXPECT_LT(pump.longestGap, kLongestGap);

    drive::WriteOrder same = OrderOf(kSectorsOf700Mb);
    same.closeDisc = true;
    pump.Begin();
    virtualDrive.Write(same, {});
    EXPECT_GT(pump.pumps, 10);
    EXPECT_LT(pump.longestGap, kLongestGap);

    for (qint64 first = 0; first < kSectorsOf700Mb; first += kStep) {
        ExpectPiece(first, std::min(kStep, kSectorsOf700Mb - first));
    }
    EXPECT_EQ(drive->Examine().state, drive::DiscState::Closed);
    EXPECT_EQ(virtualDrive.Examine().state, drive::DiscState::Closed);
    EXPECT_EQ(drive->Examine().sessions.size(), virtualDrive.Examine().sessions.size());
}

} // namespace velmora::test
