// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ProgramState.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace velmora;

TEST(ProgramStateTest, TheStartCapacityIsThatOfASingleLayerBlurayInBinaryUnits)
{
    EXPECT_EQ(shell::ProgramState().MediaCapacity, 25.0 * 1024 * 1024 * 1024);
}

TEST(ProgramStateTest, NothingIsChosenOrBurntAtTheStart)
{
    const shell::ProgramState state;
    EXPECT_EQ(state.SourceFolder.Text(), QString());
    EXPECT_EQ(state.DefaultDiscName, QString());
    EXPECT_EQ(state.SelectedRecorder, 0);
    EXPECT_EQ(state.TotalSizeBytes, 0);
    EXPECT_EQ(state.MediaFreeBytes, 0);
    EXPECT_EQ(state.MediaTypeChoice, shell::DiscTypeChoice::AsDetected);
    EXPECT_EQ(state.DiscFormat, shell::DiscFormat::BluRay);
    EXPECT_EQ(state.WizardStage, shell::WizardStage::RootPages);
    EXPECT_EQ(state.BurnPage, shell::WizardPage::Options);
    EXPECT_FALSE(state.BurnDone);
    EXPECT_FALSE(state.StopFlag);
    EXPECT_TRUE(state.ImagePath.IsEmpty());
}
