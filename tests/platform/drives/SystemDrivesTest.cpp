// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/SystemDrives.h"
#include "tests/platform/drives/DriveBench.h"

#include <filesystem>

namespace velmora::test {

class SystemDrivesTest : public DriveBench {
protected:
    SystemDrivesTest()
    {
        folder.MakeFolder("block");
        folder.MakeFolder("by-id");
    }

    void Add(const std::string& name) { folder.MakeFolder("block/" + name); }
    void Link(const std::string& name, const std::string& device)
    {
        std::filesystem::create_symlink("../../" + device, folder / ("by-id/" + name));
    }
    drives::SystemDrives Drives()
    {
        return {context,
            {QString::fromStdString(folder / "block"),
                QString::fromStdString(folder / "by-id"),
                u"/dev"_s}};
    }
};

TEST_F(SystemDrivesTest, AMachineWithoutADriveHasNone) { EXPECT_TRUE(Drives().Ids().isEmpty()); }

TEST_F(SystemDrivesTest, DrivesStandInTheOrderOfTheirNumbers)
{
    for (const char* name : {"sr10", "sr2", "sda", "sr0", "srx", "loop0"}) {
        Add(name);
    }

    EXPECT_EQ(Drives().Ids(), (QStringList {u"/dev/sr0"_s, u"/dev/sr2"_s, u"/dev/sr10"_s}));
}

TEST_F(SystemDrivesTest, ADriveIsNamedByItsLastingName)
{
    Add("sr0");
    Link("usb-VELMORA_EMULATED", "sr0");

    const QString id = QString::fromStdString(folder / "by-id/usb-VELMORA_EMULATED");
    drives::SystemDrives drives = Drives();
    EXPECT_EQ(drives.Ids(), QStringList {id});
    EXPECT_EQ(drives.Open(id)->Identify().id, id);
    EXPECT_EQ(drives.Open(id)->Identify().paths, QStringList {u"/dev/sr0"_s});
}

TEST_F(SystemDrivesTest, ADriveThatMayNotBeOpenedIsStillListed)
{
    Add("sr0");
    Fault([](mmc::Faults& faults) { faults.denied = true; });
    drives::SystemDrives drives = Drives();

    ASSERT_EQ(drives.Ids().size(), 1);
    const drive::DriveRef listed = drives.Open(drives.Ids().first());
    ASSERT_TRUE(listed);
    EXPECT_EQ(
        ErrorNumberOf([&listed] { listed->Identify(); }), Number(drive::hresult::kAccessDenied));
}

TEST_F(SystemDrivesTest, AnIdOfAnotherSourceIsNotOpened)
{
    Add("sr0");

    EXPECT_FALSE(Drives().Open(u"stdio:/tmp/image"_s));
    EXPECT_FALSE(Drives().Open(u"/dev/sr1"_s));
}

TEST_F(SystemDrivesTest, ADriveIsOneObjectForAllWhoUseIt)
{
    Add("sr0");
    drives::SystemDrives drives = Drives();

    const drive::DriveRef one = drives.Open(u"/dev/sr0"_s);

    EXPECT_EQ(one, drives.Open(u"/dev/sr0"_s));
}

} // namespace velmora::test
