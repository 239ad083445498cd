// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "DriveBench.h"

namespace velmora::test {

namespace {

std::string NameOf(const testing::TestParamInfo<std::uint16_t>& profile)
{
    return mmc::ProfileOf(profile.param).rules == mmc::Rules::Cd ? "CdR"
        : profile.param == 0x1B                                  ? "DvdPlusR"
                                                                 : "BdR";
}

} // namespace

// A program of its own with the label "slow": 2 GB go through the library and onto the disk.
class LargeBurnTest : public DriveBench, public testing::WithParamInterface<std::uint16_t> { };

INSTANTIATE_TEST_SUITE_P(,
    LargeBurnTest,
    testing::Values(std::uint16_t {0x09}, std::uint16_t {0x1B}, std::uint16_t {0x41}),
    NameOf);

TEST_P(LargeBurnTest, SevenHundredMegabytesComeWholeAndTheWindowStaysAlive)
{
    constexpr qint64 kSectors = 341797; // 700 MB
    constexpr qint64 kStep = 4096;
    Insert(GetParam(), GetParam() == 0x09 ? 404850 : 0); // a CD of 90 minutes
    imapi::WriteOrder order = OrderOf(kSectors);
    order.closeDisc = true;
    pump.Begin();

    Write(order);

    EXPECT_LT(pump.longestGap, kLongestGap);
    std::vector<std::uint8_t> wanted;
    for (qint64 first = 0; first < kSectors; first += kStep) {
        const qint64 count = std::min(kStep, kSectors - first);
        wanted.resize(static_cast<std::size_t>(count) * 2048);
        FillSectors(std::as_writable_bytes(std::span(wanted)), first, 1);
        ASSERT_EQ(emulated.Sectors(first, count), wanted) << first;
    }
}

} // namespace velmora::test
