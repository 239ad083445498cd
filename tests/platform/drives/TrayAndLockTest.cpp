// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/drives/DriveBench.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace velmora::test {

class TrayAndLockTest : public DriveBench {
protected:
    void Mount()
    {
        // 11:0 is what the emulated drive says of its device.
        std::ofstream(folder / "mounts") << "36 25 11:0 / /media/disc ro - iso9660 /dev/sr0 ro\n";
        Fault([](mmc::Faults& faults) { faults.mounted = true; });
        unmounter.onUnmount = [this] {
            if (unmounter.succeeds) {
                std::ofstream(folder / "mounts").close();
                Fault([](mmc::Faults& faults) { faults.mounted = false; });
            }
        };
    }

    bool OthersGetIt() const
    {
        const int other = open("/dev/sr0", O_RDWR | O_EXCL | O_NONBLOCK | O_CLOEXEC);
        if (other >= 0) {
            close(other);
        }
        return other >= 0;
    }

    // The sectors that a program finds when it opens the device as a file.
    static std::uint64_t SectorsForTheSystem()
    {
        const int device = open("/dev/sr0", O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        std::uint64_t bytes = 0;
        EXPECT_EQ(ioctl(device, BLKGETSIZE64, &bytes), 0);
        close(device);
        return bytes / 2048;
    }
};

TEST_F(TrayAndLockTest, TheTrayOpensAndCloses)
{
    Insert(0x1B);

    drive->Eject();
    EXPECT_TRUE(emulated.State().trayOpen);
    EXPECT_EQ(drive->Examine().state, drive::DiscState::None);

    drive->CloseTray();
    EXPECT_FALSE(emulated.State().trayOpen);
    EXPECT_EQ(drive->Examine().state, drive::DiscState::Blank);
}

// The system reads a disc's size when it is inserted. A new recording is read through the drive
// until then, and can be mounted once the tray has moved.
TEST_F(TrayAndLockTest, ARecordingIsReadThoughTheSystemLearnsItsSizeOnlyFromTheTray)
{
    constexpr qint64 kSectors = 1000;
    Insert(0x1B);
    Write(OrderOf(kSectors));
    ASSERT_EQ(SectorsForTheSystem(), 0U);
    std::vector<std::uint8_t> bytes(kSectors * 2048);

    drive->Read(0, std::as_writable_bytes(std::span(bytes)));
    EXPECT_EQ(bytes, SectorsOf(kSectors, 1));

    drive->Eject();
    drive->CloseTray();
    EXPECT_EQ(SectorsForTheSystem(), static_cast<std::uint64_t>(Disc().End()));
}

TEST_F(TrayAndLockTest, ATrayThatCannotBePulledInIsLeftToTheHand)
{
    emulated.Change([](mmc::DriveState& state) {
        state.trayOpen = true;
        state.faults.trayStuck = true;
    });

    EXPECT_EQ(ErrorNumberOf([this] { drive->CloseTray(); }), Number(drive::hresult::kFail));
}

TEST_F(TrayAndLockTest, ATrayIsOpenedOnceTheDriveHasTimeForIt)
{
    for (const mmc::Sense& sense : {mmc::kBecomingReady, mmc::kDiscChanged}) {
        Insert(0x1B);
        Fault([&sense](mmc::Faults& faults) {
            faults.keepsTrayShut = 5;
            faults.trayShutSense = sense;
        });

        drive->Eject();

        EXPECT_TRUE(emulated.State().trayOpen);
    }
}

TEST_F(TrayAndLockTest, ATrayThatNeverOpensIsLeftToTheHand)
{
    for (const mmc::Sense& sense : {mmc::kBecomingReady, mmc::kDiscChanged}) {
        Insert(0x1B);
        Fault([&sense](mmc::Faults& faults) {
            faults.keepsTrayShut = 1000000;
            faults.trayShutSense = sense;
        });

        EXPECT_EQ(ErrorNumberOf([this] { drive->Eject(); }), Number(drive::hresult::kFail));
        EXPECT_FALSE(emulated.Locked());
    }
}

TEST_F(TrayAndLockTest, ATrayThatIsKeptShutIsLocked)
{
    Insert(0x1B);
    Fault([](mmc::Faults& faults) { faults.ejectRefused = true; });

    EXPECT_EQ(ErrorNumberOf([this] { drive->Eject(); }), Number(drive::hresult::kRecorderLocked));
}

TEST_F(TrayAndLockTest, AMountedDiscIsUnmountedBeforeTheTrayOpens)
{
    Insert(0x1B);
    Mount();

    drive->Eject();

    EXPECT_EQ(unmounter.asked, QStringList {u"/dev/sr0"_s});
    EXPECT_TRUE(emulated.State().trayOpen);
}

TEST_F(TrayAndLockTest, AMountedDiscIsUnmountedBeforeItIsWritten)
{
    Insert(0x43);
    Mount();

    Write(OrderOf(100));

    EXPECT_EQ(unmounter.asked.size(), 1);
}

TEST_F(TrayAndLockTest, ADiscThatStaysMountedIsNotTouched)
{
    Insert(0x1B);
    Mount();
    unmounter.succeeds = false;

    EXPECT_EQ(ErrorNumberOf([this] { drive->Eject(); }), Number(drive::hresult::kRecorderLocked));
    EXPECT_EQ(ErrorOfWrite(OrderOf(100)), Number(drive::hresult::kRecorderLocked));
    EXPECT_EQ(
        ErrorNumberOf([this] { drive->Lock(true); }), Number(drive::hresult::kRecorderLocked));
    EXPECT_TRUE(Disc().Blank());
}

TEST_F(TrayAndLockTest, ALockWithoutForceLeavesAMountedDisc)
{
    Insert(0x1B);
    Mount();

    EXPECT_EQ(ErrorNumberOf([this] { drive->Lock(false); }), Number(drive::hresult::kAccessDenied));
    EXPECT_TRUE(unmounter.asked.isEmpty());

    drive->Lock(true);
    EXPECT_EQ(unmounter.asked.size(), 1);
    drive->Unlock();
}

TEST_F(TrayAndLockTest, ALockedDriveIsKeptFromOthersThroughAllCalls)
{
    Insert(0x1B);
    drive->Lock(false);
    EXPECT_FALSE(OthersGetIt());

    EXPECT_EQ(drive->Examine().state, drive::DiscState::Blank);
    EXPECT_FALSE(OthersGetIt());
    Write(OrderOf(1000));
    EXPECT_FALSE(OthersGetIt());
    EXPECT_EQ(drive->Examine().state, drive::DiscState::Appendable);
    drive->Eject();
    EXPECT_FALSE(OthersGetIt());

    drive->Unlock();
    EXPECT_TRUE(OthersGetIt());
}

TEST_F(TrayAndLockTest, AFailedWriteLeavesALockedDriveUsable)
{
    Insert(0x43);
    drive->Lock(false);
    Fault([](mmc::Faults& faults) { faults.writeFailsAt = 500; });
    ASSERT_EQ(ErrorOfWrite(OrderOf(1000)), Number(drive::hresult::kWriteError));
    Fault([](mmc::Faults& faults) { faults = {}; });

    Write(OrderOf(1000));

    EXPECT_EQ(emulated.Sectors(0, 1000), SectorsOf(1000, 1));
    EXPECT_FALSE(OthersGetIt());
    drive->Unlock();
}

// After a failed task the library can't use the drive until it was released and grabbed anew.
TEST_F(TrayAndLockTest, ATaskThatFailsLetsGoOfTheDrive)
{
    for (const bool isLocked : {false, true}) {
        Insert(0x0A);
        if (isLocked) {
            drive->Lock(false);
        }
        Fault([](mmc::Faults& faults) {
            faults.writeFailsAt = 500;
            faults.eraseFails = true;
        });
        EXPECT_EQ(ErrorOfErase(true), Number(drive::hresult::kEraseRefused));
        EXPECT_EQ(emulated.OpenHandles(), 0) << isLocked;
        EXPECT_EQ(ErrorOfWrite(OrderOf(1000)), Number(drive::hresult::kWriteError));
        EXPECT_EQ(emulated.OpenHandles(), 0) << isLocked;
        Fault([](mmc::Faults& faults) { faults = {}; });
        EXPECT_NE(drive->Examine().state, drive::DiscState::None);
        drive->Unlock();
        EXPECT_EQ(emulated.OpenHandles(), 0) << isLocked;
    }
}

TEST_F(TrayAndLockTest, ALockEndsWithTheDriveObject)
{
    Insert(0x1B);
    drive->Lock(false);

    drive.reset();

    EXPECT_TRUE(OthersGetIt());
}

TEST_F(TrayAndLockTest, ADriveIsNotHandedToProgramsThatAreStarted)
{
    Insert(0x1B);
    drive->Lock(false);

    int handles = 0;
    for (int handle = 3; handle < 1024; ++handle) {
        if (emulated.Owns(handle)) {
            ++handles;
            EXPECT_NE(fcntl(handle, F_GETFD) & FD_CLOEXEC, 0);
        }
    }

    EXPECT_GT(handles, 0);
    drive->Unlock();
}

} // namespace velmora::test
