// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/drives/WriteFaultBench.h"

#include <algorithm>
#include <stdexcept>

namespace velmora::test {

class WriteFaultTest : public WriteFaultBench {
protected:
    /// What the disc holds begins as the recording does, and ends without a tail of zeros.
    void ExpectOnlyABeginning(qint64 sectors)
    {
        ASSERT_FALSE(Disc().tracks.empty());
        const qint64 written = Disc().tracks.back().written;
        ASSERT_LE(written, sectors);
        std::vector<std::uint8_t> wanted = SectorsOf(sectors, 1);
        wanted.resize(static_cast<std::size_t>(written) * 2048);
        EXPECT_EQ(emulated.Sectors(0, written), wanted);
    }
};

TEST_F(WriteFaultTest, AnEmptyDriveHasNothingToWriteTo)
{
    EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kNoMedia));
}

TEST_F(WriteFaultTest, ADiscThatIsOnlyReadIsClosed)
{
    for (const std::uint16_t profile : Profiles {0x08, 0x10, 0x40}) {
        emulated.Insert(mmc::ClosedDisc(profile, kFaultSectors));
        EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kInvalidMediaState))
            << profile;
        EXPECT_EQ(drive->Examine().totalSectors, kFaultSectors) << profile;
    }
}

TEST_F(WriteFaultTest, ADiscThatTheLibraryDoesNotKnowIsUnsupported)
{
    Insert(0x2A, 2295104);

    EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kMediaNotSupported));
    EXPECT_EQ(drive->Examine().state, drive::DiscState::Unsupported);
}

// The library would treat it as an ordinary BD-R, and each sector as written for the first time.
TEST_F(WriteFaultTest, ABluRayThatPretendsToBeOverwritableIsUnsupported)
{
    mmc::Disc disc = mmc::NewDisc(0x41);
    disc.pseudoOverwrite = true;
    emulated.Insert(disc);

    EXPECT_EQ(drive->Examine().state, drive::DiscState::Unsupported);
    EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kMediaNotSupported));
    EXPECT_TRUE(Disc().Blank());
}

TEST_F(WriteFaultTest, AnImageLargerThanTheDiscIsRefusedBeforeAnythingIsWritten)
{
    for (const std::uint16_t profile : Profiles {0x09, 0x11, 0x1B, 0x41, 0x43}) {
        Insert(profile, 4096);
        EXPECT_EQ(ErrorOfWrite(OrderOf(4097)), Number(drive::hresult::kStreamTooLarge)) << profile;
        EXPECT_TRUE(Disc().tracks.empty()) << profile;
    }
}

TEST_F(WriteFaultTest, AnImageAsLargeAsTheDiscIsWritten)
{
    for (const std::uint16_t profile : Profiles {0x09, 0x11, 0x1B, 0x41, 0x43}) {
        Insert(profile, 4096);
        drive::WriteOrder order = OrderOf(4096);
        order.closeDisc = true;
        Write(order);
        EXPECT_EQ(emulated.Sectors(0, 4096), SectorsOf(4096, 1)) << profile;
    }
}

TEST_F(WriteFaultTest, AnEmptyImageIsRefused)
{
    Insert(0x1B);

    EXPECT_EQ(ErrorOfWrite(OrderOf(0)), Number(drive::hresult::kStreamNotSupported));
}

TEST_F(WriteFaultTest, AWriteProtectedDiscIsTold)
{
    Insert(0x43);
    Fault([](mmc::Faults& faults) { faults.writeProtected = true; });

    EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kWriteProtected));
    ExpectUsableAgain();
}

TEST_F(WriteFaultTest, ADefectOfTheDiscIsAWriteError)
{
    for (const std::uint16_t profile : Profiles {0x09, 0x11, 0x1B, 0x41}) {
        Insert(profile);
        Fault([](mmc::Faults& faults) { faults.writeFailsAt = 1000; });
        EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kWriteError))
            << profile;
        ExpectOnlyABeginning(1000);
        ExpectUsableAgain();
    }
}

TEST_F(WriteFaultTest, HowFarAFailedWriteCameIsTold)
{
    constexpr qint64 kBefore = 992; // whole commands
    for (const std::uint16_t profile : Profiles {0x09, 0x11, 0x1B, 0x41, 0x43}) {
        Insert(profile);
        Fault([](mmc::Faults& faults) { faults.writeFailsAt = kBefore; });
        ASSERT_NE(ErrorOfWrite(OrderOf(kFaultSectors)), 0) << profile;
        EXPECT_EQ(reports.back().lastWrittenSector - reports.back().startSector, kBefore)
            << profile;
        EXPECT_EQ(reports.back().action, drive::WriteAction::WritingData) << profile;
    }
}

// As when the drive can't calibrate its laser.
TEST_F(WriteFaultTest, AWriteThatFailsBeforeItsFirstSectorTellsOfNone)
{
    for (const std::uint16_t profile : Profiles {0x09, 0x11, 0x1B, 0x41, 0x43}) {
        Insert(profile);
        Fault([](mmc::Faults& faults) {
            faults.writeFailsAt = 0;
            faults.writeSense = {3, 0x73, 0x03};
        });
        reports.clear();
        EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kWriteError))
            << profile;
        for (const drive::WriteProgress& report : reports) {
            EXPECT_EQ(report.lastWrittenSector, report.startSector) << profile;
        }
    }
}

TEST_F(WriteFaultTest, ADriveThatStarvesAsksForALowerSpeed)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) {
        faults.writeFailsAt = 1000;
        faults.writeSense = {3, 0x0C, 0x09};
    });

    EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kLossOfStreaming));
    ExpectUsableAgain();
}

TEST_F(WriteFaultTest, ATrayThatOpensIsAMissingDisc)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) { faults.trayOpensAt = 1000; });

    EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kNoMedia));
    EXPECT_EQ(drive->Examine().state, drive::DiscState::None);
    ExpectUsableAgain();
}

TEST_F(WriteFaultTest, ADriveThatIsUnpluggedIsGone)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) { faults.unplugsAt = 1000; });

    EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kDeviceGone));
    EXPECT_EQ(ErrorNumberOf([this] { drive->Examine(); }), Number(drive::hresult::kDeviceGone));
    EXPECT_EQ(ErrorNumberOf([this] { drive->Identify(); }), Number(drive::hresult::kDeviceGone));
    ExpectUsableAgain();
}

// The library counts sectors as written that the transport has lost, and reports success.
TEST_F(WriteFaultTest, SectorsLostOnTheWayAreNoSuccess)
{
    Insert(0x43);
    Fault([](mmc::Faults& faults) { faults.timesOutAt = 1000; });

    EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kCommandTimeout));
    ExpectUsableAgain();
}

TEST_F(WriteFaultTest, SectorsLostOnTheWayEndASequentialBurn)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) { faults.timesOutAt = 1000; });

    EXPECT_NE(ErrorOfWrite(OrderOf(kFaultSectors)), 0);
    expectedViolations = emulated.Violations(); // the library goes on after the gap
    EXPECT_FALSE(expectedViolations.empty());
}

TEST_F(WriteFaultTest, EventsAreHandledWhileACommandHangs)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) {
        faults.hangsAt = 1000;
        faults.hangMilliseconds = 1500;
    });
    pump.Begin();

    Write(OrderOf(kFaultSectors));

    EXPECT_GT(pump.pumps, 15);
    EXPECT_LT(pump.longestGap, kLongestGap);
    EXPECT_EQ(emulated.Sectors(0, kFaultSectors), SectorsOf(kFaultSectors, 1));
}

TEST_F(WriteFaultTest, ALongWriteInProgressIsWaitedFor)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) {
        faults.busyAt = 1000;
        faults.busyWrites = 20;
    });

    Write(OrderOf(kFaultSectors));

    EXPECT_EQ(emulated.Sectors(0, kFaultSectors), SectorsOf(kFaultSectors, 1));
}

TEST_F(WriteFaultTest, ASourceThatFailsIsToldAsItself)
{
    Insert(0x1B);
    drive::WriteOrder order = OrderOf(kFaultSectors);
    order.source = [source = order.source, left = 8](std::span<std::byte> out) mutable {
        if (left-- == 0) {
            throw runtime::RuntimeError(-1062555350, u"Ouverture du fichier impossible."_s);
        }
        source(out);
    };

    EXPECT_EQ(ErrorOfWrite(order), -1062555350);
    if (!Disc().tracks.empty()) {
        ExpectOnlyABeginning(8 * 64);
    }
    ExpectUsableAgain();
}

TEST_F(WriteFaultTest, ASourceThatFailsAtItsLastSectorsIsNoSuccess)
{
    Insert(0x43);
    drive::WriteOrder order = OrderOf(kFaultSectors);
    order.source = [source = order.source, taken = qint64 {0}](std::span<std::byte> out) mutable {
        taken += static_cast<qint64>(out.size()) / 2048;
        if (taken == kFaultSectors) {
            throw std::runtime_error("the last part");
        }
        source(out);
    };

    EXPECT_THROW(Write(order), std::runtime_error);
    ExpectUsableAgain();
}

// Without a valid address the library writes to whatever number it has.
TEST_F(WriteFaultTest, NothingIsWrittenWhereTheDiscTellsNoAddress)
{
    for (const std::uint16_t profile : Profiles {0x11, 0x1B, 0x41}) {
        mmc::Disc disc = mmc::NewDisc(profile);
        mmc::Track track;
        track.written = 500;
        track.damaged = true;
        disc.tracks.push_back(track);
        emulated.Insert(disc);

        EXPECT_TRUE(drive->Examine().damaged) << profile;
        EXPECT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kInvalidMediaState))
            << profile;
    }
}

TEST_F(WriteFaultTest, AReportThatFailsStopsTheWriteAndIsRaised)
{
    Insert(0x1B);
    onReport = [](const drive::WriteProgress& progress) {
        if (progress.action == drive::WriteAction::WritingData) {
            throw std::runtime_error("the window is gone");
        }
        return true;
    };

    EXPECT_THROW(Write(OrderOf(200000)), std::runtime_error);
    onReport = {};
    ExpectUsableAgain();
}

TEST_F(WriteFaultTest, AReportThatFailsAtTheEndIsRaisedToo)
{
    for (const drive::WriteAction last :
        {drive::WriteAction::Finalization, drive::WriteAction::Completed}) {
        Insert(0x1B);
        onReport = [last](const drive::WriteProgress& progress) -> bool {
            return progress.action < last ? true : throw std::runtime_error("the window is gone");
        };
        EXPECT_THROW(Write(OrderOf(kFaultSectors)), std::runtime_error);
        onReport = {};
        ExpectUsableAgain();
    }
}

// The library itself goes on calling such a CD blank.
TEST_F(WriteFaultTest, AFailedBurnLeavesADiscThatIsNotBlank)
{
    for (const std::uint16_t profile : Profiles {0x09, 0x11, 0x1B, 0x41}) {
        Insert(profile);
        Fault([](mmc::Faults& faults) { faults.writeFailsAt = 1000; });
        ASSERT_EQ(ErrorOfWrite(OrderOf(kFaultSectors)), Number(drive::hresult::kWriteError))
            << profile;
        Fault([](mmc::Faults& faults) { faults = {}; });

        const drive::DiscInfo info = drive->Examine();
        EXPECT_FALSE(info.heuristicallyBlank) << profile;
        EXPECT_NE(info.state, drive::DiscState::Blank) << profile;
    }
}

TEST_F(WriteFaultTest, ASecondTaskDuringAWriteIsRefused)
{
    Insert(0x1B);
    qint32 write = 0;
    qint32 look = 0;
    onReport = [&](const drive::WriteProgress& progress) {
        if (progress.action == drive::WriteAction::WritingData) {
            write = ErrorNumberOf([this] { drive->Write(OrderOf(1), {}); });
            look = ErrorNumberOf([this] { drive->Examine(); });
        }
        return true;
    };

    Write(OrderOf(kFaultSectors));

    EXPECT_EQ(write, Number(drive::hresult::kMediaBusy));
    EXPECT_EQ(look, Number(drive::hresult::kMediaBusy));
    EXPECT_EQ(emulated.Sectors(0, kFaultSectors), SectorsOf(kFaultSectors, 1));
}

TEST_F(WriteFaultTest, TheChosenSpeedIsSentBeforeEachWrite)
{
    Insert(0x1B);
    const drive::DiscInfo info = drive->Examine();
    ASSERT_EQ(info.writeSpeeds, (QList<quint32> {10820, 8115, 5410, 2705}));
    drive::WriteOrder order = OrderOf(kFaultSectors);
    order.speed = 6000; // between two of them
    emulated.ForgetLog();

    Write(order);

    const std::vector<std::string> log = emulated.Log();
    const auto isSpeed = [](const std::string& line) { return line.starts_with("B6 "); };
    const auto isWrite = [](const std::string& line) { return line.starts_with("2A "); };
    const auto speed = std::ranges::find_if(log, isSpeed);
    EXPECT_LT(speed, std::ranges::find_if(log, isWrite));
    EXPECT_EQ(emulated.WriteSpeed(), 11080);
}

} // namespace velmora::test
