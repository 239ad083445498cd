// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FixedDrives.h"

#include "tests/support/PathLiterals.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/TemporaryFolder.h"
#include "text/PathText.h"

#include <sys/sysmacros.h>

#include <gtest/gtest.h>

#include <fstream>
#include <map>

using namespace velmora;
using namespace test::path_literals;

namespace {

std::optional<dev_t> DeviceInTests(const std::string& specialFile)
{
    const std::map<std::string, dev_t> devices {
        {"/dev/sda1", makedev(8, 1)},
        {"/dev/sda2", makedev(8, 2)},
        {"/dev/sdb1", makedev(8, 17)},
        {"/dev/sr0", makedev(11, 0)},
        {"/dev/loop3", makedev(7, 3)},
        {"/dev/mapper/home", makedev(254, 0)},
    };
    const auto found = devices.find(specialFile);
    return found == devices.end() ? std::nullopt : std::optional(found->second);
}

/// A machine with an inner disk (sda), a stick (sdb), an encrypted volume and an optical drive.
class FixedDrivesTest : public testing::Test {
protected:
    FixedDrivesTest()
    {
        MakeDisk("sda", "0");
        MakeDisk("sdb", "1");
        MakePartition("8:1", "sda", "sda1");
        MakePartition("8:2", "sda", "sda2");
        MakePartition("8:17", "sdb", "sdb1");
        MakeDisk("dm-0", "0");
        MakeDisk("sr0", "1");
        MakeDisk("loop3", "0");
        Link("254:0", "dm-0");
        Link("11:0", "sr0");
        Link("7:3", "loop3");
    }

    /// Mounts something on a folder of the test's own.
    void Mount(const std::string& point,
        const std::string& source,
        const std::string& type,
        const std::string& options = "rw,relatime")
    {
        folder_.MakeFolder("root/" + point);
        AddLine(Native(point), source, type, options);
    }
    void AddLine(const std::string& point,
        const std::string& source,
        const std::string& type,
        const std::string& options)
    {
        std::ofstream(folder_ / "mountinfo", std::ios::app)
            << "36 35 " << number_ << " / " << point << ' ' << options << " shared:1 - " << type
            << ' ' << source << " rw,errors=continue\n";
    }
    std::string Native(const std::string& point) const { return folder_ / ("root/" + point); }

    QList<text::ProgramPath> Drives() const
    {
        return shell::ListFixedDrives({.mounts = folder_ / "mountinfo",
            .blockDevices = folder_ / "dev/block",
            .deviceOf = DeviceInTests});
    }
    QList<text::ProgramPath> Expected(std::initializer_list<std::string> points) const
    {
        QList<text::ProgramPath> drives;
        for (const std::string& point : points) {
            drives += text::ToProgramPath(text::NativePath(Native(point) + '/'));
        }
        return drives;
    }

    test::TemporaryFolder folder_;
    std::string number_ = "0:42"; // as the list numbers the next devices

private:
    void MakeDisk(const std::string& name, const std::string& removable) const
    {
        folder_.MakeFolder("devices/" + name);
        std::ofstream(folder_ / ("devices/" + name + "/removable")) << removable << '\n';
    }
    void MakePartition(
        const std::string& number, const std::string& disk, const std::string& name) const
    {
        folder_.MakeFile("devices/" + disk + '/' + name + "/partition", 2);
        Link(number, disk + '/' + name);
    }
    void Link(const std::string& number, const std::string& device) const
    {
        folder_.MakeFolder("dev/block");
        std::filesystem::create_directory_symlink(
            "../../devices/" + device, folder_ / ("dev/block/" + number));
    }
};

} // namespace

TEST_F(FixedDrivesTest, LocalFileSystemsAreListedByName)
{
    Mount("home", "/dev/mapper/home", "ext4");
    Mount("data", "/dev/sda2", "xfs");
    EXPECT_EQ(Drives(), Expected({"data", "home"}));
}

TEST_F(FixedDrivesTest, OtherKindsOfFileSystemStayOut)
{
    Mount("proc", "proc", "proc");
    Mount("tmp", "tmpfs", "tmpfs");
    Mount("net", "server:/export", "nfs4");
    Mount("share", "//server/share", "cifs");
    Mount("stick", "/dev/sdb1", "vfat");
    Mount("disc", "/dev/sr0", "udf");
    Mount("snap", "/dev/loop3", "squashfs");
    Mount("gone", "/dev/sdz9", "ext4");
    EXPECT_EQ(Drives(), QList<text::ProgramPath>());
}

TEST_F(FixedDrivesTest, WithoutASpecialFileTheListsOwnNumberCounts)
{
    number_ = "8:2";
    Mount("a", "/dev/unseen", "ext4");
    number_ = "8:17";
    Mount("stick", "/dev/unseen2", "vfat");
    number_ = "11:0";
    Mount("disc", "/dev/unseen3", "udf");
    EXPECT_EQ(Drives(), Expected({"a"}));
}

TEST_F(FixedDrivesTest, WhatCantBeWrittenStaysOut)
{
    Mount("a", "/dev/sda1", "ext4", "ro,relatime");
    Mount("b", "/dev/sda2", "ext4", "rw,nosuid,errors=remount-ro");
    EXPECT_EQ(Drives(), Expected({"b"}));
}

TEST_F(FixedDrivesTest, ADeviceMountedTwiceCountsOnceAtTheFirstPlace)
{
    Mount("z", "/dev/sda1", "btrfs");
    Mount("home", "/dev/sda1", "btrfs");
    Mount("other", "/dev/sda2", "btrfs");
    EXPECT_EQ(Drives(), Expected({"home", "other"}));
}

TEST_F(FixedDrivesTest, APoolOfDevicesCountsOnce)
{
    Mount("pool", "tank", "zfs");
    Mount("pool/sub", "tank/sub", "zfs");
    Mount("second", "deep/sub", "zfs");
    EXPECT_EQ(Drives(), Expected({"pool", "second"}));
}

TEST_F(FixedDrivesTest, AFileThatIsMountedIsNoDrive)
{
    const std::string file = folder_.MakeFile("root/hosts", 1);
    AddLine(file, "/dev/sda1", "ext4", "rw");
    EXPECT_EQ(Drives(), QList<text::ProgramPath>());
}

TEST_F(FixedDrivesTest, BlanksInAMountPointAreRead)
{
    folder_.MakeFolder("root/my disk");
    AddLine(Native("my\\040disk"), "/dev/sda1", "ext4", "rw");
    EXPECT_EQ(Drives(), Expected({"my disk"}));
}

TEST_F(FixedDrivesTest, TheRootEndsInOneBackslash)
{
    AddLine("/", "/dev/sda1", "ext4", "rw");
    EXPECT_EQ(Drives(), QList {u"\\"_path});
}

TEST_F(FixedDrivesTest, LinesThatCantBeReadArePassedOver)
{
    std::ofstream(folder_ / "mountinfo") << "\n36 35\n36 35 8:1 / /x rw - \n";
    Mount("a", "/dev/sda1", "ext4");
    EXPECT_EQ(Drives(), Expected({"a"}));
}

TEST_F(FixedDrivesTest, WithoutAListThereIsNone)
{
    EXPECT_EQ(Drives(), QList<text::ProgramPath>());
}

TEST(ThisMachineTest, ItsFixedDrivesAreFolders)
{
    for (const text::ProgramPath& drive : shell::ListFixedDrives()) {
        EXPECT_TRUE(drive.Text().endsWith(u'\\'));
        EXPECT_TRUE(std::filesystem::is_directory(text::ToNativePath(drive).Bytes()));
    }
    EXPECT_EQ(shell::BlockDeviceOf("/dev/null"), std::nullopt);
    EXPECT_EQ(shell::BlockDeviceOf("/no such file"), std::nullopt);
}
