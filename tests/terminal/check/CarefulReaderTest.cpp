// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/check/CarefulReader.h"
#include "drive/PublishedCodes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace velmora::terminal {
namespace {

using mastering::ReadEnd;

/// Sectors of sevens, some of which can't be read.
class HurtSectors final : public SectorSource {
public:
    ReadEnd Read(qint64 firstSector, std::span<std::byte> out) override
    {
        ++reads;
        if (isGone) throw drive::PublishedError(drive::hresult::kDeviceGone);
        if (reads > stopsBehind) return ReadEnd::Stopped;
        const auto behind = firstSector + static_cast<qint64>(out.size()) / 2048;
        const auto weakOne = weak.lower_bound(firstSector);
        if (!isSlow && weakOne != weak.end() && *weakOne < behind) return ReadEnd::Unreadable;
        const auto first = hurt.lower_bound(firstSector);
        if (first != hurt.end() && *first < behind) return ReadEnd::Unreadable;
        std::ranges::fill(out, std::byte {7});
        return ReadEnd::Read;
    }

    void SetSpeed(drive::ReadSpeed speed) override
    {
        isSlow = speed == drive::ReadSpeed::Slowest;
        speeds += isSlow ? "slow " : "fast ";
        isGone = isGone || goesWhenSlow;
    }

    std::set<qint64> hurt;
    std::set<qint64> weak; ///< can be read slowly
    bool isSlow = false;
    bool isGone = false;
    bool goesWhenSlow = false;
    std::string speeds; ///< that were asked for
    int reads = 0;
    int stopsBehind = 1'000'000;
};

class CarefulReaderTest : public testing::Test {
protected:
    bool Read(qint64 first, std::size_t sectors)
    {
        bytes.assign(sectors * 2048, std::byte {1});
        return reader.Read(first, bytes);
    }

    HurtSectors source;
    CarefulReader reader {source};
    std::vector<std::byte> bytes;
};

TEST_F(CarefulReaderTest, WhatCanBeReadIsReadAtOnce)
{
    EXPECT_TRUE(Read(100, 512));
    EXPECT_EQ(source.reads, 1);
    EXPECT_EQ(source.speeds, "");
    EXPECT_TRUE(reader.Unreadable().empty());
}

TEST_F(CarefulReaderTest, AllButTheHurtSectorsIsRead)
{
    source.hurt = {100, 140, 141, 142, 611};
    EXPECT_TRUE(Read(100, 512));
    EXPECT_EQ(reader.Unreadable(), (std::vector<SectorRange> {{100, 100}, {140, 142}, {611, 611}}));
    EXPECT_EQ(reader.UnreadableCount(), 5);
    for (qint64 sector = 100; sector < 612; ++sector) {
        const std::byte expected = source.hurt.contains(sector) ? std::byte {0} : std::byte {7};
        ASSERT_EQ(bytes[static_cast<std::size_t>((sector - 100) * 2048)], expected) << sector;
    }
}

TEST_F(CarefulReaderTest, ASecondTryIsASlowOne)
{
    source.weak = {300};
    EXPECT_TRUE(Read(100, 512));
    EXPECT_TRUE(reader.Unreadable().empty());
    EXPECT_EQ(source.speeds, "slow fast ");
    EXPECT_TRUE(Read(612, 512));
    EXPECT_EQ(source.speeds, "slow fast ") << "only where something is hurt";
}

TEST_F(CarefulReaderTest, TheFullSpeedComesBackWithAStop)
{
    source.hurt = {100};
    source.stopsBehind = 2;
    EXPECT_FALSE(Read(100, 512));
    EXPECT_EQ(source.speeds, "slow fast ");
}

TEST_F(CarefulReaderTest, TheFullSpeedIsAskedForEvenOfADriveThatGoes)
{
    source.hurt = {100};
    source.goesWhenSlow = true;
    EXPECT_THROW(Read(100, 512), runtime::RuntimeError);
    EXPECT_EQ(source.speeds, "slow fast ");
}

TEST_F(CarefulReaderTest, AStopEndsTheSecondTry)
{
    source.hurt = {100};
    source.stopsBehind = 3;
    EXPECT_FALSE(Read(100, 512));
    EXPECT_TRUE(reader.IsStopped());
    EXPECT_EQ(source.reads, 4);
}

} // namespace
} // namespace velmora::terminal
