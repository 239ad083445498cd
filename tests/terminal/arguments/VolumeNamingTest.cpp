// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "terminal/arguments/VolumeNaming.h"

#include "tests/terminal/ScratchFolder.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

namespace {

std::string NameOf(const std::string& folder)
{
    return VolumeNameOfFolder(text::NativePath(folder));
}

} // namespace

TEST(VolumeNamingTest, AFolderGivesItsRealName)
{
    const ScratchFolder scratch;
    const std::string folder = scratch.Folder("Mes photos");
    EXPECT_EQ(NameOf(folder), "Mes photos");
    EXPECT_EQ(NameOf(folder + "/"), "Mes photos");
    EXPECT_EQ(NameOf(folder + "/."), "Mes photos");
    scratch.Folder("Mes photos/sous");
    EXPECT_EQ(NameOf(folder + "/sous/.."), "Mes photos");
    EXPECT_EQ(NameOf("/"), "DISQUE");
}

TEST(VolumeNamingTest, AFolderNameThatIsNoVolumeNameGivesTheNearestOne)
{
    const ScratchFolder scratch;
    EXPECT_EQ(NameOf(scratch.Folder(std::string(40, 'x'))), std::string(32, 'x'));
    EXPECT_EQ(NameOf(scratch.Folder("caf\xE9\n")), "caf__");
}

TEST(VolumeNamingTest, OnlyTheFileSystemsThatChangeTheNameAreTold)
{
    EXPECT_EQ(VolumeNamesText("PHOTOS", {}), "« PHOTOS »");
    EXPECT_EQ(VolumeNamesText("Photos", {}), "« Photos » (ISO 9660 : « PHOTOS »)");
    EXPECT_EQ(VolumeNamesText("PHOTOS_DE_VACANCES", {}),
        "« PHOTOS_DE_VACANCES » (Joliet : « PHOTOS_DE_VACANC »)");
    EXPECT_EQ(
        VolumeNamesText("Photos de vacances", {.iso9660 = false, .joliet = false, .udf = true}),
        "« Photos de vacances »");
}

} // namespace velmora::terminal
