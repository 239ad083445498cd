// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "VolumeNames.h"

#include "ScratchFolder.h"

#include <gtest/gtest.h>

namespace velmora::terminal {

TEST(VolumeNamesTest, AGoodNameStaysAsItIs)
{
    EXPECT_EQ(FittedVolumeName("Été 2024"), "Été 2024");
    EXPECT_EQ(FittedVolumeName(std::string(32, 'x')), std::string(32, 'x'));
}

TEST(VolumeNamesTest, ALongNameIsCutBehindThirtyTwoUnits)
{
    EXPECT_EQ(FittedVolumeName(std::string(40, 'x')), std::string(32, 'x'));
    const std::string face = "😀"; // two units
    EXPECT_EQ(FittedVolumeName(std::string(31, 'x') + face), std::string(31, 'x'));
    EXPECT_EQ(FittedVolumeName(std::string(30, 'x') + face), std::string(30, 'x') + face);
}

TEST(VolumeNamesTest, ControlsAndBadBytesBecomeUnderscores)
{
    EXPECT_EQ(FittedVolumeName("a\nb\x7f"), "a_b_");
    EXPECT_EQ(FittedVolumeName("caf\xE9"), "caf_");
    EXPECT_EQ(FittedVolumeName("\xC2\x9B"), "_");
}

TEST(VolumeNamesTest, AFolderGivesItsRealName)
{
    const ScratchFolder scratch;
    const std::string folder = scratch.Folder("Mes photos");
    EXPECT_EQ(VolumeNameOfFolder(folder), "Mes photos");
    EXPECT_EQ(VolumeNameOfFolder(folder + "/"), "Mes photos");
    EXPECT_EQ(VolumeNameOfFolder(folder + "/."), "Mes photos");
    scratch.Folder("Mes photos/sous");
    EXPECT_EQ(VolumeNameOfFolder(folder + "/sous/.."), "Mes photos");
    EXPECT_EQ(VolumeNameOfFolder("/"), "DISQUE");
}

TEST(VolumeNamesTest, OnlyTheFileSystemsThatChangeTheNameAreTold)
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
