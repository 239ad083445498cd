// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;
using drive::DiscState;

class EraseTest : public VirtualBench {
protected:
    qint32 Erase(bool full)
    {
        return velmora::test::ErrorNumberOf([&] { drive.Erase(full, {}); });
    }
};

TEST_F(EraseTest, ARewritableDiscIsBlankAgain)
{
    for (const QStringView key : {u"cd-rw",
             u"dvd-rw",
             u"dvd-rw-ow",
             u"dvd-ram",
             u"dvd+rw",
             u"dvd+rw-dl",
             u"bd-re",
             u"bd-re-dl"}) {
        for (const bool full : {false, true}) {
            Insert(key);
            ASSERT_EQ(Write(400, true), 0);
            ASSERT_FALSE(drive.Examine().heuristicallyBlank);
            ASSERT_EQ(Erase(full), 0);
            const drive::DiscInfo info = drive.Examine();
            EXPECT_TRUE(info.heuristicallyBlank) << key.toString().toStdString();
            EXPECT_TRUE(info.sessions.isEmpty());
            EXPECT_EQ(info.nextWritable, 0);
            EXPECT_EQ(info.freeSectors, info.totalSectors);
            ASSERT_EQ(Write(100, false, 3), 0);
            EXPECT_EQ(ReadBack(0, 100), Pattern(100, 3));
        }
    }
}

TEST_F(EraseTest, AQuickEraseOfAnOverwritableDiscTakesOnlyItsStart)
{
    Insert(u"dvd+rw");
    ASSERT_EQ(Write(400), 0);
    ASSERT_EQ(Erase(false), 0);
    const std::vector<std::byte> old = Pattern(400, 7);
    const auto part = [&](qint64 first, qint64 sectors) {
        return std::vector(
            old.begin() + first * kSector, old.begin() + (first + sectors) * kSector);
    };
    EXPECT_EQ(ReadBack(0, 32), std::vector<std::byte>(32 * kSector));
    EXPECT_EQ(ReadBack(32, 224), part(32, 224));
    EXPECT_EQ(ReadBack(256, 1), std::vector<std::byte>(kSector));
    EXPECT_EQ(ReadBack(257, 143), part(257, 143));
    ASSERT_EQ(Erase(true), 0);
    EXPECT_EQ(ReadBack(0, 400), std::vector<std::byte>(400 * kSector));
}

TEST_F(EraseTest, AQuicklyBlankedDvdRwTakesOneSessionOnly)
{
    Insert(u"dvd-rw");
    ASSERT_EQ(Write(100), 0);
    ASSERT_EQ(Erase(false), 0);
    EXPECT_FALSE(drive.Examine().canStayOpen);
    ASSERT_EQ(Write(100), 0);
    EXPECT_EQ(drive.Examine().state, DiscState::Closed);
    ASSERT_EQ(Erase(true), 0);
    EXPECT_TRUE(drive.Examine().canStayOpen);
    ASSERT_EQ(Write(100), 0);
    EXPECT_EQ(drive.Examine().state, DiscState::Appendable);
}

TEST_F(EraseTest, BlankingTurnsADvdRwIntoASequentialOne)
{
    Insert(u"dvd-rw-ow");
    ASSERT_EQ(Erase(true), 0);
    EXPECT_EQ(drive.Examine().profile, 0x14);
    EXPECT_EQ(drive.Examine().state, DiscState::Blank);
}

TEST_F(EraseTest, ADamagedDiscIsAsNew)
{
    Insert(u"cd-rw");
    recorders.Plan(u"A"_s, {.kind = FaultKind::MediumError, .sector = 50});
    ASSERT_EQ(Write(100), Seen(drive::hresult::kWriteError));
    ASSERT_TRUE(drive.Examine().damaged);
    ASSERT_EQ(Erase(false), 0);
    EXPECT_FALSE(drive.Examine().damaged);
    EXPECT_EQ(drive.Examine().state, DiscState::Blank);
}

TEST_F(EraseTest, IsRefusedForWhatCantBeErased)
{
    EXPECT_EQ(Erase(false), Seen(drive::hresult::kNoMedia)); // no disc
    for (const QStringView key :
        {u"cd-r", u"dvd-r", u"dvd+r", u"dvd-r-dl", u"dvd+r-dl", u"bd-r", u"cd-rom", u"bd-rom"}) {
        Insert(key, DiscPreset::Closed);
        EXPECT_EQ(Erase(false), Seen(drive::hresult::kNotErasable)) << key.toString().toStdString();
        EXPECT_EQ(Erase(true), Seen(drive::hresult::kNotErasable));
        EXPECT_EQ(drive.Examine().sessions.size(), 1);
    }
    Insert(u"inconnu");
    EXPECT_EQ(Erase(false), Seen(drive::hresult::kEraseMediaNotSupported));
    recorders.Insert(u"A"_s,
        {.medium = FindMedium(u"cd-rw"), .preset = DiscPreset::Closed, .writeProtected = true},
        clock);
    EXPECT_EQ(Erase(false), Seen(drive::hresult::kWriteProtected));
    EXPECT_EQ(drive.Examine().state, DiscState::Closed);
}

TEST_F(EraseTest, APlannedFaultRefusesItOnce)
{
    Insert(u"cd-rw", DiscPreset::Closed);
    recorders.Plan(u"A"_s, {.kind = FaultKind::EraseFails});
    EXPECT_EQ(Erase(false), Seen(drive::hresult::kEraseRefused));
    EXPECT_EQ(drive.Examine().state, DiscState::Closed);
    EXPECT_EQ(Erase(false), 0);
    recorders.Plan(u"A"_s, {.kind = FaultKind::EraseFails, .lasting = true});
    EXPECT_EQ(Erase(false), Seen(drive::hresult::kEraseRefused));
    EXPECT_EQ(Erase(true), Seen(drive::hresult::kEraseRefused));
}

TEST_F(EraseTest, TakesAsLongAsARealOneWhenAsked)
{
    Change([](Description& now) { now.drive.realTiming = true; });
    Insert(u"cd-rw", DiscPreset::Closed);
    clock.Pause(10);
    std::vector<std::pair<qint32, qint32>> told;
    const double start = clock.Timer();
    drive.Erase(true, [&](qint32 elapsed, qint32 estimated) {
        told.emplace_back(elapsed, estimated);
        return true;
    });
    constexpr double kSeconds = 359'847.0 / 1800;
    EXPECT_NEAR(clock.Timer() - start, kSeconds, 1);
    ASSERT_GE(told.size(), 399U); // every half second
    EXPECT_EQ(told.front(), (std::pair<qint32, qint32> {0, 199}));
    EXPECT_EQ(told.back(), (std::pair<qint32, qint32> {199, 199}));
    EXPECT_TRUE(std::ranges::is_sorted(told, {}, [](const auto& pair) { return pair.first; }));
}

TEST_F(EraseTest, IsStoppedByItsReport)
{
    Change([](Description& now) { now.drive.realTiming = true; });
    Insert(u"cd-rw", DiscPreset::Closed);
    clock.Pause(10);
    const double start = clock.Timer();
    const auto stop = [](qint32 elapsed, qint32) { return elapsed < 3; };
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Erase(true, stop); }),
        Seen(drive::hresult::kCancelled));
    EXPECT_EQ(clock.Timer() - start, 3);
    EXPECT_EQ(drive.Examine().state, DiscState::Closed);
}

TEST_F(EraseTest, EndsWhenTheTrayIsOpenedMeanwhile)
{
    Change([](Description& now) { now.drive.realTiming = true; });
    Insert(u"cd-rw", DiscPreset::Closed);
    clock.Pause(10);
    const auto openSoon = [&](qint32 elapsed, qint32) {
        if (elapsed == 3) {
            recorders.Eject(u"A"_s);
        }
        return true;
    };
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Erase(false, openSoon); }),
        Seen(drive::hresult::kNoMedia));
    recorders.Close(u"A"_s, clock);
    clock.Pause(10);
    EXPECT_EQ(drive.Examine().state, DiscState::Closed);
}

} // namespace velmora::virtualdrive::test
