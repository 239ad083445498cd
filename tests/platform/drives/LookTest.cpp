// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/drives/DriveBench.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <tuple>

namespace velmora::test {

namespace {

constexpr qint64 kLookedSectors = 1000;

} // namespace

class LookTest : public DriveBench { };

TEST_F(LookTest, ADriveTellsWhatItIsWithoutADisc)
{
    const drive::DriveFacts facts = drive->Identify();

    EXPECT_EQ(facts.id, u"drive"_s);
    EXPECT_EQ(facts.vendor, u"VELMORA"_s);
    EXPECT_EQ(facts.product, u"EMULATED DRIVE"_s);
    EXPECT_EQ(facts.revision, u"1.00"_s);
    EXPECT_EQ(facts.paths, QStringList {u"/dev/sr0"_s});
    EXPECT_EQ(facts.legacyNumber, 0);
    EXPECT_TRUE(facts.canLoadMedia);
    EXPECT_EQ(facts.profiles.size(), 15);
    EXPECT_EQ(facts.profiles.first(), 0x43);
}

TEST_F(LookTest, ADriveInUseStillTellsWhatItIs)
{
    Fault([](mmc::Faults& faults) { faults.mounted = true; });

    EXPECT_EQ(drive->Identify().vendor, u"VELMORA"_s);
}

TEST_F(LookTest, AskingADriveDoesNotStartItsDisc)
{
    Insert(0x1B);
    emulated.ForgetLog();

    drive->Identify();

    for (const std::string& line : emulated.Log()) {
        EXPECT_FALSE(line.starts_with("1B ") || line.starts_with("1E ")) << line;
    }
}

TEST_F(LookTest, WhoHasNoRightToTheDriveIsTold)
{
    Fault([](mmc::Faults& faults) { faults.denied = true; });

    EXPECT_EQ(ErrorNumberOf([this] { drive->Identify(); }), Number(drive::hresult::kAccessDenied));
    EXPECT_EQ(ErrorNumberOf([this] { drive->Examine(); }), Number(drive::hresult::kAccessDenied));
}

TEST_F(LookTest, AnEmptyTrayIsNoError)
{
    EXPECT_EQ(drive->Examine().state, drive::DiscState::None);
    emulated.Change([](mmc::DriveState& state) { state.trayOpen = true; });
    const drive::DiscInfo info = drive->Examine();
    EXPECT_EQ(info.state, drive::DiscState::None);
    EXPECT_EQ(info.profile, 0);
    EXPECT_TRUE(info.writeSpeeds.isEmpty()) << "without a disc they would be the drive's";
}

TEST_F(LookTest, ADiscThatSpinsUpIsWaitedFor)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) { faults.readyAfter = 5; }); // of the ten looks there is time for
    pump.Begin();

    EXPECT_EQ(drive->Examine().state, drive::DiscState::Blank);
    EXPECT_GE(pump.pumps, 5);
}

TEST_F(LookTest, ADiscThatNeverSpinsUpIsGivenUp)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) { faults.readyAfter = 100000; });

    EXPECT_EQ(ErrorNumberOf([this] { drive->Examine(); }), Number(drive::hresult::kBecomingReady));
}

TEST_F(LookTest, ADiscThatSpinsUpIsLookedAtSoonAndWrittenLater)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) { faults.readyAfter = 25; }); // 10 ms each

    EXPECT_EQ(ErrorNumberOf([this] { drive->Examine(); }), Number(drive::hresult::kBecomingReady));
    Write(OrderOf(kLookedSectors));
    EXPECT_EQ(emulated.Sectors(0, kLookedSectors), SectorsOf(kLookedSectors, 1));
}

TEST_F(LookTest, ADriveThatAnotherProgramHasIsWaitedForAndGivenUp)
{
    Insert(0x1B);
    const int other = open("/dev/sr0", O_RDWR | O_EXCL | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(other, 0);
    pump.Begin();

    EXPECT_EQ(ErrorNumberOf([this] { drive->Examine(); }), Number(drive::hresult::kRecorderLocked));
    EXPECT_GT(pump.pumps, 1);

    close(other);
    EXPECT_EQ(drive->Examine().state, drive::DiscState::Blank);
}

TEST_F(LookTest, ADriveThatBecomesFreeMeanwhileIsTaken)
{
    Insert(0x1B);
    const int other = open("/dev/sr0", O_RDWR | O_EXCL | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(other, 0);
    pump.onPump = [this, other] {
        close(other);
        pump.onPump = {};
    };

    EXPECT_EQ(drive->Examine().state, drive::DiscState::Blank);
}

TEST_F(LookTest, TheDriveIsFreeBetweenTwoCalls)
{
    Insert(0x1B);

    drive->Examine();

    EXPECT_EQ(emulated.OpenHandles(), 0);
    const std::vector<std::string> log = emulated.Log();
    const auto last = std::ranges::find_if(
        log.rbegin(), log.rend(), [](const std::string& line) { return line.starts_with("1E "); });
    ASSERT_NE(last, log.rend());
    EXPECT_TRUE(last->starts_with("1E 00 00 00 00")) << "the tray can be opened by hand";
}

// The library holds at most 255 drives, and forgets none by itself.
TEST_F(LookTest, ThereIsNoEndToTasks)
{
    Insert(0x1B);
    for (int i = 0; i < 260; ++i) {
        ASSERT_EQ(drive->Examine().state, drive::DiscState::Blank) << i;
    }
}

TEST_F(LookTest, SpeedsOfACdCountAllBytesOfASector)
{
    Insert(0x09);

    EXPECT_EQ(drive->Examine().writeSpeeds, (QList<quint32> {3599, 1800, 1199, 599, 300}));
}

TEST_F(LookTest, AnUnreadableSectorIsTold)
{
    Insert(0x1B);
    Write(OrderOf(kLookedSectors));
    Fault([](mmc::Faults& faults) { faults.readFailsAt = 500; });
    std::vector<std::byte> out(100UL * 2048);

    EXPECT_EQ(
        ErrorNumberOf([&] { drive->Read(450, out); }), Number(drive::hresult::kImportReadFailure));
    EXPECT_EQ(ErrorNumberOf([&] { drive->Read(600, out); }), 0);
    EXPECT_EQ(ErrorNumberOf([&] { drive->Read(900, out); }), 0);
}

TEST_F(LookTest, WhatKeepsADriveFromReadingIsNoUnreadableSector)
{
    Insert(0x1B);
    Write(OrderOf(kLookedSectors));
    std::vector<std::byte> out(100UL * 2048);
    Fault([](mmc::Faults& faults) {
        faults.refuses = 0x28; // READ (10)
        faults.refusedSense = {2, 0x3A, 0x00};
    });
    EXPECT_EQ(ErrorNumberOf([&] { drive->Read(0, out); }), Number(drive::hresult::kNoMedia));
    Fault([](mmc::Faults& faults) { faults.refusedSense = {4, 0x44, 0x00}; });
    EXPECT_EQ(
        ErrorNumberOf([&] { drive->Read(0, out); }), Number(drive::hresult::kImportReadFailure));
}

TEST_F(LookTest, AReadSpeedIsAskedForWithTheWordsOfTheDisc)
{
    const std::vector<std::tuple<std::uint16_t, std::string, int>> discs {
        {0x09, "BB 00 00 B1 FF FF", 177}, // SET CD SPEED
        {0x1B, "B6 ", 1393},              // SET STREAMING
        {0x41, "B6 ", 4496}};
    for (const auto& [profile, command, kilobytes] : discs) {
        Insert(profile);
        drive->Lock(false);
        emulated.ForgetLog();
        drive->SetReadSpeed(drive::ReadSpeed::Slowest);
        EXPECT_EQ(emulated.ReadSpeed(), kilobytes);
        EXPECT_TRUE(std::ranges::any_of(emulated.Log(), [&command](const std::string& line) {
            return line.starts_with(command) && line.ends_with("-> ok");
        })) << command;
        drive->SetReadSpeed(drive::ReadSpeed::Fastest);
        EXPECT_GE(emulated.ReadSpeed(), 0xFFFF);
        drive->Unlock();
    }
}

TEST_F(LookTest, ASectorThatOnlySlowReadsMakeOutIsReadSlowly)
{
    Insert(0x1B);
    Write(OrderOf(kLookedSectors));
    Fault([](mmc::Faults& faults) { faults.slowReadsAt = 40; });
    std::vector<std::byte> out(100UL * 2048);
    drive->Lock(false);
    EXPECT_EQ(
        ErrorNumberOf([&] { drive->Read(0, out); }), Number(drive::hresult::kImportReadFailure));
    drive->SetReadSpeed(drive::ReadSpeed::Slowest);
    EXPECT_EQ(ErrorNumberOf([&] { drive->Read(0, out); }), 0);
    drive->Unlock();
}

TEST_F(LookTest, ADriveThatRefusesASpeedReadsOn)
{
    for (const auto profile : {std::uint16_t {0x09}, std::uint16_t {0x1B}}) {
        Insert(profile);
        Write(OrderOf(kLookedSectors));
        Fault([profile](mmc::Faults& faults) { faults.refuses = profile == 0x09 ? 0xBB : 0xB6; });
        drive->Lock(false);
        EXPECT_EQ(ErrorNumberOf([&] { drive->SetReadSpeed(drive::ReadSpeed::Slowest); }), 0);
        std::vector<std::byte> out(100UL * 2048);
        EXPECT_EQ(ErrorNumberOf([&] { drive->Read(0, out); }), 0);
        drive->Unlock();
        Fault([](mmc::Faults& faults) { faults.refuses = -1; });
    }
}

TEST_F(LookTest, AnEmptyDriveHasNothingToRead)
{
    std::vector<std::byte> out(2048);

    EXPECT_EQ(ErrorNumberOf([&] { drive->Read(0, out); }), Number(drive::hresult::kNoMedia));
}

TEST_F(LookTest, AnOpenSessionIsTold)
{
    mmc::Disc disc = mmc::NewDisc(0x1B);
    mmc::Track track;
    track.written = 512;
    disc.tracks.push_back(track);
    emulated.Insert(disc);

    const drive::DiscInfo info = drive->Examine();

    EXPECT_EQ(info.state, drive::DiscState::Appendable);
    EXPECT_TRUE(info.lastSessionOpen);
    EXPECT_EQ(info.nextWritable, 512);
    EXPECT_TRUE(info.sessions.isEmpty());
}

} // namespace velmora::test
