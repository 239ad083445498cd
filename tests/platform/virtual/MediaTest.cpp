// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/virtual/VirtualBench.h"

namespace velmora::virtualdrive::test {

using namespace Qt::StringLiterals;
using drive::DiscState;

namespace {

struct Row {
    QStringView key;
    qint32 profile;
    DiscState state; // as sold
    qint64 capacity;
    quint32 fastest;
    quint32 slowest;
    bool erasable;
    bool canStayOpen;
};

std::ostream& operator<<(std::ostream& out, const Row& row)
{
    return out << row.key.toString().toStdString();
}

class MediaTest : public VirtualBench, public testing::WithParamInterface<Row> { };

} // namespace

TEST_P(MediaTest, ANewDiscShowsWhatItIs)
{
    const Row& row = GetParam();
    Insert(row.key);
    const drive::DiscInfo info = drive.Examine();
    EXPECT_EQ(info.profile, row.profile);
    EXPECT_EQ(info.state, row.state);
    EXPECT_TRUE(info.heuristicallyBlank);
    EXPECT_EQ(info.freeSectors, row.capacity);
    EXPECT_EQ(info.totalSectors, row.capacity);
    EXPECT_EQ(info.nextWritable, 0);
    EXPECT_TRUE(info.sessions.isEmpty());
    EXPECT_EQ(info.erasable, row.erasable);
    EXPECT_EQ(info.canStayOpen, row.canStayOpen);
    EXPECT_FALSE(info.damaged || info.lastSessionOpen || info.writeProtected);
    ASSERT_FALSE(info.writeSpeeds.isEmpty());
    EXPECT_EQ(info.writeSpeeds.first(), row.fastest);
    EXPECT_EQ(info.writeSpeeds.last(), row.slowest);
    EXPECT_TRUE(std::ranges::is_sorted(info.writeSpeeds, std::greater()));
}

TEST_P(MediaTest, TakesARecordingByteForByte)
{
    const Row& row = GetParam();
    Insert(row.key);
    ASSERT_EQ(Write(333), 0);
    EXPECT_EQ(ReadBack(0, 333), Pattern(333, 7));
    const drive::DiscInfo info = drive.Examine();
    EXPECT_FALSE(info.heuristicallyBlank);
    EXPECT_FALSE(info.damaged);
    const bool isOverwritable = row.state == DiscState::Overwritable;
    ASSERT_EQ(info.sessions.size(), isOverwritable ? 0 : 1);
    EXPECT_TRUE(isOverwritable || info.sessions.first().firstSector == 0);
    EXPECT_EQ(info.state,
        isOverwritable ? DiscState::Overwritable
                       : (row.canStayOpen ? DiscState::Appendable : DiscState::Closed));
}

TEST_P(MediaTest, RefusesOneSectorTooMany)
{
    const Row& row = GetParam();
    Insert(row.key);
    EXPECT_EQ(Write(row.capacity + 1), Seen(drive::hresult::kStreamTooLarge));
    EXPECT_TRUE(drive.Examine().heuristicallyBlank);
}

TEST_P(MediaTest, RefusesAWriteWhenItIsProtected)
{
    const Row& row = GetParam();
    recorders.Insert(u"A"_s, {.medium = FindMedium(row.key), .writeProtected = true}, clock);
    EXPECT_TRUE(drive.Examine().writeProtected);
    EXPECT_EQ(Write(10), Seen(drive::hresult::kWriteProtected));
    EXPECT_TRUE(drive.Examine().heuristicallyBlank);
}

TEST_P(MediaTest, ClosedAndFullDiscsTakeNothing)
{
    const Row& row = GetParam();
    for (const DiscPreset preset : {DiscPreset::Closed, DiscPreset::Full}) {
        Insert(row.key, preset);
        const drive::DiscInfo info = drive.Examine();
        EXPECT_FALSE(info.heuristicallyBlank);
        EXPECT_EQ(info.erasable, row.erasable);
        if (row.state == DiscState::Overwritable) {
            EXPECT_EQ(info.freeSectors, row.capacity);
            continue;
        }
        ASSERT_EQ(info.sessions.size(), 1);
        EXPECT_EQ(info.state, DiscState::Closed);
        EXPECT_EQ(info.freeSectors, 0);
        EXPECT_EQ(info.totalSectors, info.sessions.first().sectors);
        EXPECT_EQ(Write(10), Seen(drive::hresult::kInvalidMediaState));
    }
}

TEST_P(MediaTest, AnAppendableDiscHoldsTheSample)
{
    const Row& row = GetParam();
    Insert(row.key, DiscPreset::Appendable);
    const drive::DiscInfo info = drive.Examine();
    const std::vector<std::byte> sample = velmora::test::SampleSectors(clock);
    EXPECT_EQ(ReadBack(0, static_cast<qint64>(sample.size()) / kSector), sample);
    if (row.state == DiscState::Blank) {
        ASSERT_EQ(info.sessions.size(), 1);
        EXPECT_EQ(info.state, DiscState::Appendable);
        EXPECT_GE(info.nextWritable, info.sessions.first().sectors);
        EXPECT_EQ(info.freeSectors, row.capacity - info.nextWritable);
    }
}

INSTANTIATE_TEST_SUITE_P(AllRecordable,
    MediaTest,
    testing::Values(Row {u"cd-r", 0x09, DiscState::Blank, 359'847, 3600, 600, false, true},
        Row {u"cd-r-74", 0x09, DiscState::Blank, 333'000, 3600, 600, false, true},
        Row {u"cd-r-90", 0x09, DiscState::Blank, 404'850, 3600, 600, false, true},
        Row {u"cd-rw", 0x0A, DiscState::Blank, 359'847, 1800, 300, true, true},
        Row {u"dvd-r", 0x11, DiscState::Blank, 2'298'496, 10'880, 2720, false, true},
        Row {u"dvd-rw", 0x14, DiscState::Blank, 2'298'496, 4080, 1360, true, true},
        Row {u"dvd-rw-ow", 0x13, DiscState::Overwritable, 2'298'496, 4080, 1360, true, false},
        Row {u"dvd-ram", 0x12, DiscState::Overwritable, 2'236'704, 3400, 1360, true, false},
        Row {u"dvd+r", 0x1B, DiscState::Blank, 2'295'104, 10'880, 2720, false, true},
        Row {u"dvd+rw", 0x1A, DiscState::Overwritable, 2'295'104, 5440, 1632, true, false},
        Row {u"dvd-r-dl", 0x15, DiscState::Blank, 4'171'712, 5440, 1360, false, false},
        Row {u"dvd+r-dl", 0x2B, DiscState::Blank, 4'173'824, 5440, 1360, false, true},
        Row {u"dvd+rw-dl", 0x2A, DiscState::Overwritable, 4'173'824, 1632, 1632, true, false},
        Row {u"bd-r", 0x41, DiscState::Blank, 12'219'392, 35'120, 4390, false, true},
        Row {u"bd-r-dl", 0x41, DiscState::Blank, 24'438'784, 35'120, 4390, false, true},
        Row {u"bd-re", 0x43, DiscState::Overwritable, 12'219'392, 4390, 2195, true, false},
        Row {u"bd-re-dl", 0x43, DiscState::Overwritable, 24'438'784, 4390, 2195, true, false}));

namespace {

struct PressedRow {
    QStringView key;
    qint32 profile;
};

class PressedTest : public VirtualBench, public testing::WithParamInterface<PressedRow> { };

} // namespace

TEST_P(PressedTest, CanOnlyBeRead)
{
    Insert(GetParam().key);
    const drive::DiscInfo info = drive.Examine();
    EXPECT_EQ(info.profile, GetParam().profile);
    EXPECT_EQ(info.state, DiscState::Closed);
    EXPECT_EQ(info.freeSectors, 0);
    ASSERT_EQ(info.sessions.size(), 1);
    EXPECT_EQ(info.totalSectors, info.sessions.first().sectors);
    EXPECT_FALSE(info.erasable || info.canStayOpen || info.heuristicallyBlank);
    EXPECT_TRUE(info.writeSpeeds.isEmpty());
    EXPECT_EQ(ReadError(0, info.totalSectors), 0);
    EXPECT_EQ(ReadError(info.totalSectors), Seen(drive::hresult::kImportReadFailure));
    EXPECT_EQ(Write(1), Seen(drive::hresult::kMediaNotSupported));
}

INSTANTIATE_TEST_SUITE_P(All,
    PressedTest,
    testing::Values(
        PressedRow {u"cd-rom", 0x08}, PressedRow {u"dvd-rom", 0x10}, PressedRow {u"bd-rom", 0x40}));

using DiscStateTest = VirtualBench;

TEST_F(DiscStateTest, AnUnknownDiscCantBeDealtWith)
{
    Insert(u"inconnu");
    const drive::DiscInfo info = drive.Examine();
    EXPECT_EQ(info.state, DiscState::Unsupported);
    EXPECT_EQ(info.profile, 0xFFFF);
    EXPECT_EQ(info.freeSectors, 0);
    EXPECT_EQ(Write(1), Seen(drive::hresult::kMediaNotSupported));
}

TEST_F(DiscStateTest, ADriveWithoutTheDiscsProfileDoesNotKnowIt)
{
    Change([](Description& now) { now.drive.profiles = {0x08, 0x09, 0x0A}; });
    Insert(u"bd-r");
    EXPECT_EQ(drive.Examine().state, DiscState::Unsupported);
    EXPECT_EQ(Write(1), Seen(drive::hresult::kMediaNotSupported));
    Insert(u"cd-rw");
    EXPECT_EQ(drive.Examine().state, DiscState::Blank);
}

TEST_F(DiscStateTest, ADiscUpsideDownIsNamedSo)
{
    recorders.Insert(u"A"_s, {.medium = FindMedium(u"cd-r"), .upsideDown = true}, clock);
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kUpsideDown));
    EXPECT_EQ(Write(1), Seen(drive::hresult::kUpsideDown));
    EXPECT_EQ(ReadError(0), Seen(drive::hresult::kUpsideDown));
}

TEST_F(DiscStateTest, ASlowDiscIsReadyAfterItsSeconds)
{
    recorders.Insert(u"A"_s, {.medium = FindMedium(u"cd-r"), .secondsToReady = 5}, clock);
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kBecomingReady));
    EXPECT_EQ(Write(1), Seen(drive::hresult::kBecomingReady));
    clock.Pause(4.9);
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kBecomingReady));
    clock.Pause(0.2);
    EXPECT_EQ(ExamineError(), 0);
    drive.Eject();
    drive.CloseTray();
    EXPECT_EQ(ExamineError(), Seen(drive::hresult::kBecomingReady));
}

TEST_F(DiscStateTest, AClockThatWasPutBackKeepsNoDiscFromGettingReady)
{
    recorders.Insert(u"A"_s, {.medium = FindMedium(u"cd-r"), .secondsToReady = 5}, clock);
    clock.Pause(-86'400);
    EXPECT_EQ(ExamineError(), 0);
}

TEST_F(DiscStateTest, ADriveMayWriteAtSpeedsOfItsOwn)
{
    Change([](Description& now) { now.drive.speeds[u"bd-r"_s] = {4390, 8780, 8780}; });
    Insert(u"bd-r");
    EXPECT_EQ(drive.Examine().writeSpeeds, (QList<quint32> {8780, 4390}));
}

TEST_F(DiscStateTest, NothingIsReadFromAnEmptyDisc)
{
    Insert(u"dvd+r");
    EXPECT_EQ(ReadError(0), Seen(drive::hresult::kImportReadFailure));
    Insert(u"dvd+rw"); // was never formatted
    EXPECT_EQ(ReadError(0), Seen(drive::hresult::kImportReadFailure));
    Insert(u"dvd-ram");
    EXPECT_EQ(ReadBack(1000, 1), std::vector<std::byte>(kSector));
    EXPECT_EQ(ReadError(2'236'704), Seen(drive::hresult::kImportReadFailure));
}

TEST_F(DiscStateTest, OnlyWholeSectorsAreRead)
{
    Insert(u"dvd-ram");
    std::vector<std::byte> bytes(100);
    EXPECT_EQ(velmora::test::ErrorNumberOf([&] { drive.Read(0, bytes); }), 5);
    EXPECT_EQ(ReadError(-1), 5);
}

} // namespace velmora::virtualdrive::test
