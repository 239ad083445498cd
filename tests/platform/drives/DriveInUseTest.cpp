// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/DriveInUse.h"

#include "tests/platform/drives/DriveBench.h"

namespace velmora::test {

class DriveInUseTest : public DriveBench {
protected:
    DriveInUseTest()
    {
        Insert(0x1B);
        std::filesystem::create_directories(folder / "proc");
    }
    // 11:0 is what the emulated drive says of its device.
    void MountAt(const std::string& place)
    {
        std::ofstream(folder / "mounts") << "35 25 8:1 / / rw - ext4 /dev/sda1 rw\n36 25 11:0 / "
                                         << place << " ro,nosuid - iso9660 /dev/sr0 ro\n";
    }
    runtime::RuntimeError Error() const
    {
        return drives::DriveInUse(u"/dev/sr0"_s,
            {.mounts = QString::fromStdString(folder / "mounts"),
                .processes = QString::fromStdString(folder / "proc")});
    }
};

TEST_F(DriveInUseTest, WhoHasItOpenIsNamed)
{
    const std::filesystem::path other = folder / "proc" / "4711";
    std::filesystem::create_directories(other / "fd");
    std::filesystem::create_symlink("/dev/sr0", other / "fd" / "5");
    std::ofstream(other / "comm") << "brasero\n";

    EXPECT_EQ(Error().Number(), Number(drive::hresult::kRecorderLocked));
    EXPECT_EQ(Error().Description(),
        u"Le graveur est utilisé par « brasero » (processus 4711) : fermez ce programme, puis "
        "recommencez."_s);
}

TEST_F(DriveInUseTest, AMountedDiscIsNamedByItsPlace)
{
    MountAt("/media/anne/Mes\\040photos");

    EXPECT_EQ(Error().Description(),
        u"Le disque est monté sur « /media/anne/Mes photos » : démontez-le (umount /dev/sr0), puis "
        "recommencez."_s);
}

TEST_F(DriveInUseTest, WhoCannotBeKnownIsLookedForByThePerson)
{
    EXPECT_EQ(Error().Description(),
        u"Le graveur est verrouillé par une autre application : fermez-la ou démontez le disque "
        "(umount /dev/sr0)."_s);
}

// It says what the system tells, which is nothing for this drive.
TEST_F(DriveInUseTest, ALookThatWaitedInVainSaysWhy)
{
    Fault([](mmc::Faults& faults) { faults.mounted = true; });

    try {
        drive->Examine();
        FAIL();
    } catch (const runtime::RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), Number(drive::hresult::kRecorderLocked));
        EXPECT_TRUE(failure.Description().contains(u"umount /dev/sr0"_s));
    }
}

TEST_F(DriveInUseTest, WhoMayNotOpenTheDeviceIsToldWhichGroupMay)
{
    Fault([](mmc::Faults& faults) { faults.denied = true; });

    try {
        drive->Identify();
        FAIL();
    } catch (const runtime::RuntimeError& failure) {
        EXPECT_EQ(failure.Number(), Number(drive::hresult::kAccessDenied));
        EXPECT_EQ(failure.Description(),
            u"Accès au graveur refusé : votre compte doit faire partie du groupe « cdrom ». Tapez "
            u"« "
            "sudo adduser $USER cdrom », rouvrez votre session, puis recommencez."_s);
    }
}

} // namespace velmora::test
